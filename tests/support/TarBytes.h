#pragma once

#include <QByteArray>

#include <numeric>
#include <utility>
#include <vector>

namespace tremlo::test {

/// A tar file of the members, names and contents.
inline QByteArray TarBytes(const std::vector<std::pair<QByteArray, QByteArray>>& members) {
  constexpr qsizetype kBlock = 512;
  QByteArray tar;
  for (const auto& [name, content] : members) {
    QByteArray header(kBlock, '\0');
    const auto put = [&header](qsizetype at, const QByteArray& text) {
      header.replace(at, text.size(), text);
    };
    const auto octal = [](qint64 number, int digits) {
      return QByteArray::number(number, 8).rightJustified(digits, '0');
    };
    put(0, name);
    put(100, "0000644");
    put(108, "0000000");
    put(116, "0000000");
    put(124, octal(content.size(), 11));
    put(136, octal(0, 11));
    put(148, "        ");
    put(156, "0");
    put(257, QByteArray("ustar\0"
                        "00",
                        8));
    const int sum = std::accumulate(header.begin(), header.end(), 0,
                                    [](int all, char c) { return all + static_cast<unsigned char>(c); });
    put(148, octal(sum, 6) + '\0');
    tar += header + content + QByteArray((kBlock - content.size() % kBlock) % kBlock, '\0');
  }
  return tar + QByteArray(2 * kBlock, '\0');
}

}  // namespace tremlo::test

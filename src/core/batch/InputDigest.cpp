#include "core/batch/InputDigest.h"

#include <QFileInfo>

#include <algorithm>

namespace tremlo {

namespace {

std::string_view BytesOf(const QByteArray& bytes) {
  return {bytes.constData(), static_cast<std::size_t>(bytes.size())};
}

}  // namespace

InputDigest::InputDigest(const QString& version, const BatchJob& job) {
  Add("version", BytesOf(version.toUtf8()));
  std::vector<std::pair<QString, QString>> options = job.options;
  std::sort(options.begin(), options.end());  // the order of columns says nothing
  for (const auto& [name, value] : options) {
    Add("option", BytesOf(name.toUtf8()));
    Add("value", BytesOf(value.toUtf8()));
  }
  Add("seed", BytesOf(QFileInfo(job.seed).fileName().toUtf8()));
}

bool InputDigest::AddInput(const QString& path) {
  QByteArray content;
  if (!ReadWholeFile(path, content)) return false;
  Add("input", BytesOf(content));
  return true;
}

void InputDigest::AddOutput(std::string_view content) {
  Add("output", content);
}

bool InputDigest::AddOutputs(const std::vector<QString>& paths) {
  for (const QString& path : paths) {
    QByteArray content;
    if (!ReadWholeFile(path, content)) return false;
    AddOutput(BytesOf(content));
  }
  return true;
}

QString InputDigest::Hex() const {
  return QString::fromLatin1(m_hash.result().toHex());
}

/// Each field led by its kind and length, so that no two lists of fields give the same bytes.
void InputDigest::Add(const char* kind, std::string_view bytes) {
  m_hash.addData(QByteArray(kind) + ' ' + QByteArray::number(static_cast<qulonglong>(bytes.size())) + '\n');
  m_hash.addData(QByteArray::fromRawData(bytes.data(), static_cast<qsizetype>(bytes.size())));
}

}  // namespace tremlo

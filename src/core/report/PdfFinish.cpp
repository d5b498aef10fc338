#include "core/report/PdfFinish.h"

#include <QRegularExpression>

#include <algorithm>

namespace tremlo {

namespace {

/// The objects of the file by number; number 0 is none.
using PdfObjects = std::vector<QByteArray>;

struct PdfFile {
  QByteArray head;
  PdfObjects objects;
  int info = 0;
  int catalogue = 0;
};

/// The first whole number behind a key.
std::optional<int> NumberBehind(const QByteArray& bytes, const QByteArray& key) {
  const QRegularExpression pattern(QString::fromLatin1(key) + QStringLiteral("\\s+(\\d+)"));
  const QRegularExpressionMatch match = pattern.match(QString::fromLatin1(bytes));
  bool ok = false;
  const int number = match.captured(1).toInt(&ok);
  return ok ? std::optional(number) : std::nullopt;
}

/// Where each object begins, as the cross-reference table at `start` has it.
std::optional<std::vector<qsizetype>> ObjectStarts(const QByteArray& pdf, qsizetype start) {
  constexpr qsizetype kEntry = 20;  // bytes, fixed by the format
  const QByteArray table = pdf.mid(start);
  const QRegularExpressionMatch heading =
      QRegularExpression(QStringLiteral("^xref\\s+0 (\\d+)\\s+")).match(QString::fromLatin1(table.left(40)));
  const qsizetype count = heading.captured(1).toLongLong(), first = heading.capturedLength();
  if (!heading.hasMatch() || table.size() < first + count * kEntry) return std::nullopt;
  std::vector<qsizetype> starts;
  for (qsizetype i = 0; i < count; ++i) {
    const qsizetype at = table.mid(first + i * kEntry, 10).toLongLong();
    if (at < 0 || at > start) return std::nullopt;
    starts.push_back(at);
  }
  return starts;
}

std::optional<PdfFile> ReadPdf(const QByteArray& pdf) {
  const qsizetype trailerAt = pdf.lastIndexOf("trailer");
  if (!pdf.startsWith("%PDF-") || trailerAt < 0) return std::nullopt;
  const QByteArray trailer = pdf.mid(trailerAt);
  const auto info = NumberBehind(trailer, "/Info"), root = NumberBehind(trailer, "/Root"),
             xref = NumberBehind(trailer, "startxref");
  if (!info || !root || !xref || *xref > trailerAt) return std::nullopt;
  const auto starts = ObjectStarts(pdf, *xref);
  const int count = starts ? static_cast<int>(starts->size()) : 0;
  if (*info <= 0 || *root <= 0 || *info >= count || *root >= count) return std::nullopt;

  std::vector<qsizetype> ends = *starts;
  ends.push_back(*xref);
  std::sort(ends.begin(), ends.end());
  PdfFile file;
  file.info = *info;
  file.catalogue = *root;
  for (int i = 0; i < count; ++i) {
    const qsizetype at = (*starts)[static_cast<std::size_t>(i)];
    file.objects.push_back(i == 0 ? QByteArray()
                                  : pdf.mid(at, *std::upper_bound(ends.begin(), ends.end(), at) - at));
    if (i > 0 && !file.objects.back().startsWith(QByteArray::number(i) + " 0 obj")) return std::nullopt;
  }
  file.head = pdf.left(*std::find_if(ends.begin(), ends.end(), [](qsizetype end) { return end > 0; }));
  return file;
}

/// The numbers of the pages' objects, in the order of the pages.
std::vector<int> PagesOf(const PdfFile& file) {
  std::vector<int> pages;
  const auto tree = NumberBehind(file.objects[static_cast<std::size_t>(file.catalogue)], "/Pages");
  if (!tree || *tree <= 0 || *tree >= static_cast<int>(file.objects.size())) return pages;
  const QString text = QString::fromLatin1(file.objects[static_cast<std::size_t>(*tree)]);
  const QString kids = QRegularExpression(QStringLiteral("/Kids\\s*\\[([^\\]]*)\\]")).match(text).captured(1);
  static const QRegularExpression reference(QStringLiteral("(\\d+) 0 R"));
  for (auto match = reference.globalMatch(kids); match.hasNext();)
    pages.push_back(match.next().captured(1).toInt());
  return pages;
}

/// A text as the format wants what is not plain letters: in hexadecimal digits of UTF-16.
QByteArray TextOf(const QString& text) {
  QByteArray digits = "<feff";
  for (const QChar letter : text) digits += QByteArray::number(letter.unicode(), 16).rightJustified(4, '0');
  return digits + '>';
}

/// Puts further entries behind the last of a dictionary.
bool Extend(QByteArray& object, const QByteArray& entries) {
  const qsizetype end = object.lastIndexOf(">>");
  if (end < 0) return false;
  object.insert(end, entries);
  return true;
}

bool SetInformation(QByteArray& object, const PdfFinish& finish) {
  const QByteArray key = "/CreationDate (";
  const qsizetype from = object.indexOf(key);
  const qsizetype to = object.indexOf(')', from);
  if (from < 0 || to < 0) return false;
  object.replace(from, to + 1 - from,
                 key + finish.date.toString(QStringLiteral("'D:'yyyyMMdd'000000Z'")).toLatin1() + ')');
  return finish.author.isEmpty() || Extend(object, "/Author " + TextOf(finish.author) + '\n');
}

/// The bookmarks as one row of objects behind their common root.
bool AddBookmarks(PdfFile& file, const std::vector<PdfBookmark>& bookmarks) {
  const std::vector<int> pages = PagesOf(file);
  const int root = static_cast<int>(file.objects.size());
  const int count = static_cast<int>(bookmarks.size());
  const auto reference = [](const char* key, int number) {
    return key + QByteArray::number(number) + " 0 R\n";
  };
  file.objects.push_back(QByteArray::number(root) + " 0 obj\n<<\n/Type /Outlines\n" +
                         reference("/First ", root + 1) + reference("/Last ", root + count) + "/Count " +
                         QByteArray::number(count) + "\n>>\nendobj\n");
  for (int i = 0; i < count; ++i) {
    const PdfBookmark& bookmark = bookmarks[static_cast<std::size_t>(i)];
    if (bookmark.page < 0 || bookmark.page >= static_cast<int>(pages.size())) return false;
    const int number = root + 1 + i;
    QByteArray object = QByteArray::number(number) + " 0 obj\n<<\n/Title " + TextOf(bookmark.title) + '\n' +
                        reference("/Parent ", root);
    if (i > 0) object += reference("/Prev ", number - 1);
    if (i + 1 < count) object += reference("/Next ", number + 1);
    object += "/Dest [" + QByteArray::number(pages[static_cast<std::size_t>(bookmark.page)]) +
              " 0 R /XYZ 0 " + QByteArray::number(bookmark.top, 'f', 2) + " null]\n>>\nendobj\n";
    file.objects.push_back(object);
  }
  return Extend(file.objects[static_cast<std::size_t>(file.catalogue)],
                reference("/Outlines ", root) + "/PageMode /UseOutlines\n");
}

QByteArray Written(const PdfFile& file) {
  QByteArray pdf = file.head, table;
  for (const QByteArray& object : file.objects) {
    table += object.isEmpty() ? QByteArrayLiteral("0000000000 65535 f \n")
                              : QByteArray::number(pdf.size()).rightJustified(10, '0') + " 00000 n \n";
    pdf += object;
  }
  const QByteArray size = QByteArray::number(file.objects.size());
  const QByteArray start = QByteArray::number(pdf.size());
  return pdf + "xref\n0 " + size + '\n' + table + "trailer\n<<\n/Size " + size + "\n/Info " +
         QByteArray::number(file.info) + " 0 R\n/Root " + QByteArray::number(file.catalogue) +
         " 0 R\n>>\nstartxref\n" + start + "\n%%EOF\n";
}

}  // namespace

std::optional<QByteArray> FinishPdf(const QByteArray& painted, const PdfFinish& finish) {
  std::optional<PdfFile> file = ReadPdf(painted);
  if (!file || !finish.date.isValid()) return std::nullopt;
  if (!SetInformation(file->objects[static_cast<std::size_t>(file->info)], finish)) return std::nullopt;
  if (!Extend(file->objects[static_cast<std::size_t>(file->catalogue)], "/Lang (ja-JP)\n"))
    return std::nullopt;
  if (!finish.bookmarks.empty() && !AddBookmarks(*file, finish.bookmarks)) return std::nullopt;
  return Written(*file);
}

}  // namespace tremlo

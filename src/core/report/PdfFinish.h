#pragma once

#include <QByteArray>
#include <QDate>
#include <QString>

#include <optional>
#include <vector>

namespace tremlo {

struct PdfBookmark {
  QString title;
  int page = 0;      ///< counted from 0
  double top = 0.0;  ///< of what it leads to, in points above the lower edge of the page
};

/// What a painted PDF lacks.
struct PdfFinish {
  QDate date;      ///< of its making, in place of the clock's
  QString author;  ///< may be empty
  std::vector<PdfBookmark> bookmarks;
};

/// The file that Qt's PDF writer has painted, written anew with bookmarks, which are open at the start, with
/// Japanese as its language, and with another date. None when the bytes are no such file, or a bookmark leads
/// to no page of it.
std::optional<QByteArray> FinishPdf(const QByteArray& painted, const PdfFinish& finish);

}  // namespace tremlo

#pragma once

#include "support/TestFolder.h"

#include <QProcess>

#include <gtest/gtest.h>

namespace tremlo::test {

/// The texts of a PDF's pages, as another program reads them.
inline QStringList PagesOfPdf(const QByteArray& pdf) {
  const TestFolder folder;
  QProcess reader;
  reader.start(QStringLiteral(TREMLO_PDFTOTEXT), {"-layout", folder.Write("report.pdf", pdf), "-"});
  EXPECT_TRUE(reader.waitForFinished(60000));
  EXPECT_EQ(reader.exitCode(), 0);
  EXPECT_EQ(reader.readAllStandardError(), QByteArray());
  QStringList pages = QString::fromUtf8(reader.readAllStandardOutput()).split(u'\f');
  if (!pages.isEmpty() && pages.last().isEmpty()) pages.removeLast();
  return pages;
}

}  // namespace tremlo::test

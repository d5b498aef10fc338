#pragma once

#include "support/TestFolder.h"

#include <QImage>
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

/// The cover as another program paints it, two pixels to a mm.
inline QImage CoverOfPdf(const QByteArray& pdf) {
  const TestFolder folder;
  QProcess painter;
  painter.start(QStringLiteral(TREMLO_PDFTOPPM),
                {"-r", "50.8", "-l", "1", "-gray", folder.Write("report.pdf", pdf)});
  EXPECT_TRUE(painter.waitForFinished(60000));
  EXPECT_EQ(painter.exitCode(), 0);
  return QImage::fromData(painter.readAllStandardOutput());
}

}  // namespace tremlo::test

#include "core/graphs/GraphFile.h"

#include "core/files/FileName.h"
#include "core/graphs/GraphTexts.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>

namespace tremlo {

namespace {

QString ProposedName(GraphKind kind, const std::vector<GraphSeries>& curves, const QString& ending) {
  QString name;
  if (std::count_if(curves.begin(), curves.end(), HasPoints) == 1)
    name = PlainFileName(std::find_if(curves.begin(), curves.end(), HasPoints)->name);
  if (!name.isEmpty()) name += u'_';
  return name + TextsOf(kind).name + ending;
}

}  // namespace

std::optional<PictureFormat> PictureFormatOf(const QString& path) {
  const QString ending = QFileInfo(path).suffix().toLower();
  if (ending == u"png") return PictureFormat::Png;
  if (ending == u"svg") return PictureFormat::Svg;
  if (ending == u"pdf") return PictureFormat::Pdf;
  return std::nullopt;
}

FileQuestion PictureToWrite(GraphKind kind, const std::vector<GraphSeries>& curves) {
  return {.title = QStringLiteral("画像をファイルに保存"),
          .nameFilters = QStringLiteral("PNG画像 (*.png);;SVG画像 (*.svg);;PDF文書 (*.pdf)"),
          .suffix = QStringLiteral("png"),
          .proposedName = ProposedName(kind, curves, QStringLiteral(".png"))};
}

FileQuestion CurvesToWrite(GraphKind kind, const std::vector<GraphSeries>& curves) {
  return {.title = QStringLiteral("データをCSVで保存"),
          .nameFilters = QStringLiteral("CSVファイル (*.csv)"),
          .suffix = QStringLiteral("csv"),
          .proposedName = ProposedName(kind, curves, QStringLiteral(".csv"))};
}

QString UnknownPictureText(const QString& path) {
  return QStringLiteral(
             "画像を保存できません。ファイル名の末尾は .png、.svg、.pdf のいずれかにしてください。\n") +
         QDir::toNativeSeparators(path);
}

}  // namespace tremlo

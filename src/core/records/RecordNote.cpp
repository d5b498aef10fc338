#include "core/records/RecordNote.h"

#include "core/records/RecordTerms.h"

#include <QDir>
#include <QStringList>

namespace tremlo {

namespace {

QString Figure(double value) {
  return QString::number(value, 'g', 6);
}

QString Said(const char16_t* name, const QString& value) {
  return QString::fromUtf16(name) + QStringLiteral("：") + value;
}

QString OffsetText(const RecordNote& note) {
  if (note.offset != 0.0) return Figure(note.offset) + QStringLiteral(" gal を差し引きました");
  if (note.format == RecordFormat::OwnWave || !note.corrected) return QStringLiteral("差し引いていません");
  return QStringLiteral("補正済みの記録のため差し引いていません");
}

/// What both texts tell, a part each.
QStringList Parts(const RecordNote& note) {
  QStringList parts{Said(u"形式", FormatName(note.format))};
  if (note.format == RecordFormat::OwnWave)
    parts.back() += QStringLiteral("（他の形式の目印がないため、この形式で読みました）");
  if (!note.station.isEmpty()) parts << Said(u"観測点", note.station);
  if (!note.component.isEmpty()) parts << Said(u"成分", note.component);
  parts << Said(u"データ数", QString::number(note.count));
  parts << Said(u"時間間隔", Figure(note.timeStep) + QStringLiteral(" 秒"));
  parts << Said(u"単位", note.unit + (note.factor.isEmpty() || note.factor == u"1"
                                          ? QString()
                                          : QStringLiteral("（係数 %1）").arg(note.factor)));
  parts << Said(u"オフセット", OffsetText(note));
  if (note.cut) parts << Said(u"範囲", QStringLiteral("%1～%2 秒").arg(Figure(note.from), Figure(note.to)));
  for (const QString& warning : note.warnings) parts << Said(u"警告", warning);
  return parts;
}

}  // namespace

QString NoteLine(const RecordNote& note) {
  return Parts(note).join(QStringLiteral("　"));
}

QString NoteDefinitions() {
  return QStringLiteral(
      "形式：ファイルの中身から判断した、または選ばれた記録の形式。\n"
      "データ数：読み込んだ値の個数。\n"
      "時間間隔：値と値の間の時間。\n"
      "単位：ファイルの値の単位。係数は、それを gal に直すために掛けた数。\n"
      "オフセット：読み込んだ値から差し引いた一定の値（平均）。\n"
      "範囲：記録の始めを 0 秒として、読み込んだ部分。\n"
      "警告：読み方や記録について、確かめるべきこと。");
}

QString NoteDetails(const RecordNote& note) {
  QStringList lines{Said(u"ファイル", QDir::toNativeSeparators(note.file))};
  if (!note.member.isEmpty()) lines << Said(u"書庫の中", note.member);
  lines << Parts(note);
  if (!note.start.isEmpty()) lines << Said(u"記録の開始", note.start);
  const QString credit = CreditOf(note.format);
  if (!credit.isEmpty()) lines << Said(u"出典の表示", credit);
  return lines.join(u'\n');
}

}  // namespace tremlo

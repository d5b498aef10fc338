#include "core/project/ChangeQuestions.h"

#include "core/location/HazardTables.h"

namespace tremlo {

QString BaseChangeMessage(const QString& baseSpectrumName) {
  return u'「' + baseSpectrumName +
         QStringLiteral(
             "」を選択済みですがよろしいですか？\n\n"
             "変更した場合、原種波形の選択、振幅調整が再度必要になります。");
}

QString BaseChangeQuestion(const QString& baseSpectrumName) {
  return QStringLiteral("既に基準スペクトルとして") + BaseChangeMessage(baseSpectrumName);
}

QString SeedChangeMessage(const QString& seedAdoptedName) {
  return u'「' + seedAdoptedName +
         QStringLiteral(
             "」を選択済みですがよろしいですか？\n\n"
             "基準スペクトルを変更した場合、原種波形の選択、振幅調整が再度必要になります。");
}

QString SiteChangeQuestion() {
  return QStringLiteral(
      "現在の現場位置で断層データを取得していますがよろしいですか？\n\n"
      "現場位置を変更する場合、断層データをクリアするため，\n"
      "・断層データの取得\n"
      "・基準スペクトル設定\n"
      "・原種波形の選択\n"
      "・振幅調整\n"
      "が再度必要となります。");
}

QString ApiParametersQuestion(const ApiParameterSet& parameters) {
  return QStringLiteral(
             "既に断層データを取得済みですがよろしいですか？\n\n"
             "取得済みの断層データはクリアされます。") +
         CurrentParametersText(parameters);
}

QString AdjustSettingsQuestion() {
  return QStringLiteral(
      "振幅調整をしていますがよろしいですか？\n\n"
      "振幅調整の設定を変更した場合、振幅調整が再度必要になります。");
}

QString AdjustedWavesQuestion() {
  return QStringLiteral("振幅調整がされていますがよろしいですか？");
}

QString AdjustedWaveDataQuestion() {
  return QStringLiteral(
      "振幅調整がされていますがよろしいですか？\n\n"
      "時間間隔を変更した場合、原種波形の選択、振幅調整が再度必要となります。");
}

QString DeleteWaveQuestion(const QString& name) {
  return u'「' + name + QStringLiteral("」を削除しますがよろしいですか？");
}

QString LeaveFlowCheckQuestion() {
  return QStringLiteral("作業手順の確認中ですがよろしいですか？");
}

QString ChangeProcedureQuestion() {
  return QStringLiteral(
      "作業手順を変更しますか？\n"
      "以下のデータがクリアされます。\n"
      "・「現場近隣地震波形」\n"
      "・「距離減衰式(断層)」\n"
      "・「下限スペクトル」\n"
      "・「基準スペクトル設定」\n"
      "・「原種波形の振幅調整」\n"
      "・「可視化」\n"
      "・「断層APIパラメータ設定」\n"
      "・「振幅調整設定」");
}

}  // namespace tremlo

#pragma once

#include "core/project/MorvaneDoc.h"

#include <QStringList>

namespace tremlo {

/// What the dialog "断層APIパラメータ設定" shows and does. It works on a copy of the parameters; what a user
/// does not touch keeps its stored value, be it one that no radio button and no list has.
class FaultExploration {
 public:
  explicit FaultExploration(CMorvaneDoc& doc) : values(doc.apiParameters), m_doc(doc) {}

  ApiParameterSet values;

  /// The texts of the two lists, newest version first.
  static QStringList SearchVersionTexts();
  static QStringList ActivityVersionTexts();
  /// The row of a list, counted from 0, that shows the value; -1 for a value that the list does not have.
  int SearchVersionRow() const;
  int ActivityVersionRow() const;
  /// A row of a list was chosen; one that it does not have changes nothing.
  void ChooseSearchVersion(int row);
  void ChooseActivityVersion(int row);

  /// Texts of the radio buttons, by index.
  static QStringList IntensityTexts();
  static QStringList ModeTexts();
  static QStringList CaseTexts();
  static QStringList PeriodTexts();

  /// "初期値に戻す": the values of a new project, in the document at once.
  void Reset();
  /// "OK": the values into the document.
  void Accept();

 private:
  CMorvaneDoc& m_doc;
};

/// Titles of the seven groups, in the order of the parameters.
inline constexpr const char16_t* kFaultExplorationTitles[] = {u"超過確率しきい震度",
                                                              u"評価パラメータ(カタストロフ重視度)",
                                                              u"想定地震コード",
                                                              u"地図バージョン (被害地検索)",
                                                              u"地図バージョン (地震活動モデル)",
                                                              u"確率ケース",
                                                              u"発生確率評価期間"};

}  // namespace tremlo

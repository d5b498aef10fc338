#include "window/waves/DlgNowCalcAccSpec.h"

namespace tremlo {

CDlgNowCalcAccSpec::CDlgNowCalcAccSpec(QWidget* parent)
    : RunDialog(QStringLiteral("加速度応答スペクトルの計算中です。"), kEndMessage, parent) {
  setObjectName(QStringLiteral("CDlgNowCalcAccSpec"));
}

void CDlgNowCalcAccSpec::SetWave(int wave, int count, const QString& name) {
  SetProgress(wave - 1, count, QStringLiteral("%1 / %2　").arg(wave).arg(count) + name);
}

}  // namespace tremlo

#include "window/sources/DlgNowGetFault.h"

namespace tremlo {

CDlgNowGetFault::CDlgNowGetFault(QWidget* parent)
    : RunDialog(QStringLiteral("J-SHISから断層データの取得中です。"), kEndMessage, parent) {
  setObjectName(QStringLiteral("CDlgNowGetFault"));
  // Until the service has said how many there are.
  SetProgress(0, 1, QStringLiteral("断層の一覧"));
}

void CDlgNowGetFault::SetFault(int fault, int count, const QString& name) {
  SetProgress(fault - 1, count, QStringLiteral("%1 / %2　").arg(fault).arg(count) + name);
}

}  // namespace tremlo

#include "window/waves/DlgNowCalc.h"

#include "core/waves/FitText.h"

#include <limits>

namespace tremlo {

CDlgNowCalc::CDlgNowCalc(int iterations, double tolerance, QWidget* parent)
    : RunDialog(QStringLiteral("振幅調整の計算中です。"), kEndMessage, parent),
      m_iterations(iterations),
      m_tolerance(tolerance) {
  setObjectName(QStringLiteral("CDlgNowCalc"));
  SetPasses(0, std::numeric_limits<double>::quiet_NaN());
}

void CDlgNowCalc::SetFit(const FitFigures& fit) {
  SetPasses(fit.pass + 1, fit.deviation);
}

void CDlgNowCalc::SetPasses(int passes, double deviation) {
  SetProgress(passes, m_iterations,
              QStringLiteral("%1 / %2 回　偏差 %3（収束判定 %4）")
                  .arg(passes)
                  .arg(m_iterations)
                  .arg(PercentText(deviation), PercentText(m_tolerance)));
}

}  // namespace tremlo

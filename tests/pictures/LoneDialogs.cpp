#include "pictures/LoneDialogs.h"

#include "window/shell/DlgSplash.h"
#include "window/shell/DlgTop.h"
#include "window/sources/DlgNowGetFault.h"
#include "window/waves/DlgNowCalc.h"
#include "window/waves/DlgNowCalcAccSpec.h"
#include "window/waves/DlgReadRecord.h"

namespace tremlo::pictures {

void TakeLoneDialogs(Photographer& camera) {
  CDlgSplash splash(1000000);
  TakeStanding(camera, "splash", splash);
  CDlgTop top;
  TakeStanding(camera, "top", top);
  {
    CDlgNowCalc run(100, 0.05, nullptr);
    FitFigures fit;
    fit.deviation = 0.123;
    run.SetFit(fit);
    run.SetFit(fit);
    TakeStanding(camera, "now_calc", run);
  }
  {
    CDlgNowCalcAccSpec run(nullptr);
    run.SetWave(1, 2, QStringLiteral("見本記録 ダム基礎 NS"));
    TakeStanding(camera, "now_calc_acc_spec", run);
  }
  {
    CDlgNowGetFault run(nullptr);
    run.SetFault(2, 3, QStringLiteral("見本西断層"));
    TakeStanding(camera, "now_get_fault", run);
  }
  {
    CDlgReadRecord run(nullptr);
    run.GoesOn(120, 0.4);
    TakeStanding(camera, "read_record", run);
  }
}

}  // namespace tremlo::pictures

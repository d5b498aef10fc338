#include "shell/ScreenTable.h"

#include "sources/DamSpectra.h"

namespace tremlo {

namespace {

bool CalculateFaultSpectra(const ScreenParts& parts) {
  const std::optional<TableFailure> failure =
      CalculateDamSpectra(parts.doc.damCoefSets, parts.doc.attenuationMethod, parts.doc.faults);
  if (failure) {
    parts.prompt.Tell(failure->text, PromptIcon::None);
    return false;
  }
  parts.doc.SetModified(true);
  return true;
}

}  // namespace

bool ScreenTable::HasRoute(bool guidelineRoute) const {
  const ScreenId first = guidelineRoute ? kFirstScreen : ScreenId::RespOrigSeismicWave;
  const ScreenId last = guidelineRoute ? ScreenId::Visualization : kLastScreen;
  for (int id = static_cast<int>(first); id <= static_cast<int>(last); ++id)
    if (!screens.contains(static_cast<ScreenId>(id))) return false;
  return true;
}

ScreenTable ProgramScreens() {
  ScreenTable table;
  table.runs.calculateFaultSpectra = CalculateFaultSpectra;
  return table;
}

}  // namespace tremlo

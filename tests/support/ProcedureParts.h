#pragma once

#include "core/project/ChangeRules.h"
#include "support/ScriptedPrompt.h"

#include <map>
#include <set>

namespace tremlo::test {

/// Holder of screens that writes down each call: "prepare 59655", "show 59655". The runs write to the
/// document as the real ones would, or fail when told to.
class RecordingHost : public ScreenHost {
 public:
  RecordingHost(CMorvaneDoc& doc, QStringList& log) : m_doc(doc), m_log(log) {}

  bool Has(ScreenId id) const override { return !missing.contains(id); }
  void Prepare(ScreenId id) override { Log("prepare", id); }
  void Show(ScreenId id) override { Log("show", id); }
  void Entered(ScreenId id) override { Log("entered", id); }
  void Left(ScreenId id) override { Log("left", id); }
  void Refresh(ScreenId id) override { Log("refresh", id); }
  bool ComputeMissingSpectra() override;
  bool CalculateFaultSpectra() override;
  AdjustResult RunRespAdjustment() override;

  std::set<ScreenId> missing;  ///< screens that the program has not
  bool missingSpectraWork = true;
  bool faultSpectraWork = true;
  bool respAdjustmentWorks = true;  ///< a run that does not ends behind 4 passes at 12.5 %

 private:
  void Log(const char* what, ScreenId id);

  CMorvaneDoc& m_doc;
  QStringList& m_log;
};

/// Flow pane that knows which buttons are enabled and which is marked.
class RecordingPane : public FlowPaneControl {
 public:
  explicit RecordingPane(QStringList& log) : m_log(log) {}

  void ShowRoute(bool guidelineRoute) override;
  void EnableStep(FlowStep step, bool enabled) override { m_enabled[step] = enabled; }
  void SetCurrentStep(FlowStep step) override { current = step; }
  void Highlight(FlowStep step, bool repaint) override;

  /// Which of the eight steps behind the procedure are enabled.
  std::vector<FlowStep> EnabledSteps() const;

  std::optional<FlowStep> current;
  std::optional<FlowStep> marked;  ///< the button that bears the mark
  std::optional<FlowStep> drawn;   ///< the mark that the user sees

 private:
  QStringList& m_log;
  std::map<FlowStep, bool> m_enabled;
};

/// A document with all that the procedure needs around it. What happens is written to `log` in its order.
struct ProcedureParts {
  QStringList log;
  CMorvaneDoc doc{QString()};
  ScriptedPrompt prompt{&log};
  RecordingHost host{doc, log};
  RecordingPane pane{log};
  WorkProcedure procedure{doc, prompt, host, pane};
  ChangeRules rules{doc, prompt, procedure};

  /// Opens a screen without a question and forgets what was logged.
  void Enter(ScreenId id);
  /// What was logged since the last call.
  QStringList TakeLog();
};

/// A project of the guideline route far on in the work: a fixed procedure, three waves ("A" is used near the
/// site and adopted, "A" and "B" are adjusted, "C" is not), two faults ("南" with one plane, "北" with two),
/// three lower limits of which the first is selected, and awkward numbers in it. No base spectrum is chosen.
/// It counts as not modified.
void FillProject(CMorvaneDoc& doc);

/// Chooses the base spectrum as a click on its row does.
inline constexpr char16_t kWaveLabel[] = u"A";
inline constexpr char16_t kPlaneLabel[] = u"(最短距離)(2)北";
inline constexpr char16_t kEquivalentLabel[] = u"(等価震源距離)南";
inline constexpr char16_t kLowerLabel[] = u"下限1";
void ChooseBase(CMorvaneDoc& doc, const char16_t* label);

}  // namespace tremlo::test

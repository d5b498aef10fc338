#pragma once

#include "core/ask/Prompt.h"
#include "core/project/FlowPaneControl.h"
#include "core/project/MorvaneDoc.h"
#include "core/project/ScreenGates.h"

#include <optional>

namespace tremlo {

/// Where the guideline route stands.
enum class ProcedureState {
  Undecided,  ///< not fixed, and no chart on display
  Deciding,   ///< not fixed, on one of the two charts
  Fixed,
};

/// The answers of the click chart, in the order of its boxes.
struct ChartAnswers {
  bool q1Yes = false;          ///< a seismograph stands at the dam
  bool q2Yes = false;          ///< it records acceleration
  bool collect = false;        ///< material is to be collected
  bool faultSource = false;    ///< fault data is to be used
  bool neighbourWave = false;  ///< usable waves near the dam exist

  bool operator==(const ChartAnswers& other) const = default;
};

/// The answers on which the fixed procedure rests.
ChartAnswers FixedAnswers(const CMorvaneDoc& doc);

/// The procedure that leads the engineer from screen to screen: which step is enabled, which screen opens,
/// and how the procedure is fixed and changed. It decides over the document; what it decides reaches the user
/// through the prompt, the holder of the screens and the flow pane. All of it runs on the thread of the user
/// interface.
class WorkProcedure {
 public:
  WorkProcedure(CMorvaneDoc& doc, Prompt& prompt, ScreenHost& host, FlowPaneControl& pane)
      : m_doc(doc), m_prompt(prompt), m_host(host), m_pane(pane), m_gates(doc, prompt, host) {}

  ProcedureState State() const;
  std::optional<ScreenId> ActiveScreen() const { return m_active; }
  /// The click chart is on display and not yet confirmed.
  bool FlowCheckActive() const { return m_flowCheckActive; }

  /// The pane.
  bool StepEnabled(FlowStep step) const;
  void ApplyStepSwitches();  ///< enables and disables the steps behind the procedure
  void ApplyFlowState();     ///< the same; with a fixed procedure the highlight goes to the first step
  void ResetPane();          ///< new project: those steps disabled, highlight on the first step
  /// A press on a step. Does not look whether the step is enabled: a disabled button cannot be pressed.
  SwitchOutcome PressStep(FlowStep step);

  /// Opens a screen: asks whether a chart may be left, then passes the gate. A number that is no command
  /// tells so and ends the program. The gate of the screen on display runs again.
  SwitchOutcome SwitchScreen(ScreenId id);
  /// Whether the user may leave the screen on display; asks while the click chart is up.
  bool ConfirmLeaveFlowCheck();
  /// The pane and the first screen of the document's route; on the response route the highlight with it.
  SwitchOutcome ShowRouteStart();

  /// Makes screens read the document again. Those of the route; those of the faults; the one on display.
  void RefreshScreens();
  void RefreshFaultScreens();
  void RefreshActiveScreen();

  /// "新規作成", "開く", a recent file and a dropped file all call this first; false: the command is dropped.
  /// Asks while the click chart is up. A Yes holds for the next switch too, even when the command then goes
  /// no further.
  bool BeginReplaceProject();
  /// The document holds a new project, or the program has started: brings screens and route into line and
  /// leaves the document not modified. The steps have been set before.
  SwitchOutcome ShowProject();
  /// The same after an open at run time, be it a failed one.
  SwitchOutcome ShowOpenedProject();

  /// Clears the answers of the charts in the document: a chart starts afresh. Entering a chart does so by
  /// itself.
  void ClearFlowAnswers();
  /// "作業手順の確定" on the click chart. Tells and refuses when the phase part is not complete.
  SwitchOutcome FixByClicks(const ChartAnswers& answers);
  /// The last question accepted with "OK". The answers stand in the document already; the steps of the two
  /// sources follow the paths of the chart as drawn.
  SwitchOutcome FixByQuestions(bool faultPath, bool neighbourPath);
  /// "作業手順の変更": asks, clears what rested on the old procedure, opens the choice of the charts.
  SwitchOutcome ChangeProcedure();

 private:
  std::optional<ScreenId> TargetOf(ScreenId id) const;
  void Exchange(ScreenId target);
  void ApplyEntryRules(ScreenId id);
  void DisableSteps();
  void EnableFixedSteps(bool faultSource, bool neighbourWave);
  void MoveHighlight(FlowStep step);
  SwitchOutcome Fix(bool faultSource, bool neighbourWave);
  void ClearForChangedProcedure();

  CMorvaneDoc& m_doc;
  Prompt& m_prompt;
  ScreenHost& m_host;
  FlowPaneControl& m_pane;
  ScreenGates m_gates;
  std::optional<ScreenId> m_active;
  bool m_flowCheckActive = false;
  bool m_skipFlowPrompt = false;  ///< the user has agreed already; holds for one switch
};

}  // namespace tremlo

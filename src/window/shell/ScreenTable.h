#pragma once

#include "core/ask/FileDialogs.h"
#include "core/location/OnlineMode.h"
#include "core/project/ChangeRules.h"
#include "window/graphs/CommandGate.h"
#include "window/graphs/Screen.h"

#include <functional>
#include <map>

namespace tremlo {

/// What screens and dialogs may use; each takes what it needs. All of it outlives them.
struct ScreenParts {
  CMorvaneDoc& doc;
  Prompt& prompt;
  FileDialogs& files;
  WorkProcedure& procedure;
  ChangeRules& rules;
  const OnlineMode& online;
  const ServiceSettings& services;
  CommandGate& gate;
  /// To be called with the outcome of every switch that a screen itself asks for: one of them ends the
  /// program.
  std::function<void(SwitchOutcome)> follow;
  /// The command "断層APIパラメータ設定" as the menu gives it: its questions, then its dialog.
  std::function<void()> editApiParameters;
  /// Computes the spectra of all planes afresh, as ScreenHost says. Behind a false the screen ends the
  /// program by `follow`.
  std::function<bool()> calculateFaultSpectra;
};

/// The calculations of the gates, which screens share. Each reports as ScreenHost says.
struct ScreenRuns {
  std::function<bool(const ScreenParts&)> computeMissingSpectra;
  std::function<bool(const ScreenParts&)> calculateFaultSpectra;
  std::function<AdjustResult(const ScreenParts&)> runRespAdjustment;
};

/// All screens of the program, with the dialogs of the menus.
struct ScreenTable {
  std::map<ScreenId, std::function<Screen*(const ScreenParts&)>> screens;
  ScreenRuns runs;
  /// Show a modal dialog. An entry of the menu without its dialog is disabled.
  std::function<void(const ScreenParts&)> editApiParameters;
  std::function<void(const ScreenParts&)> editAdjustSettings;
  std::function<void(const ScreenParts&)> writeReport;
};

/// The screens that the program has.
ScreenTable ProgramScreens();

}  // namespace tremlo

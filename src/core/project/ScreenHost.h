#pragma once

#include "core/project/ScreenId.h"
#include "core/waves/AdjustRun.h"

namespace tremlo {

/// How a request to open a screen ended.
enum class SwitchOutcome {
  Open,        ///< the screen is on display
  Refused,     ///< the old screen remains
  EndProgram,  ///< the user has been told; the program ends with exit status 1
};

/// What the work procedure asks of the window that holds the screens. Everything runs on the thread of the
/// user interface. The window shows exactly one screen, and only Show changes which one.
class ScreenHost {
 public:
  virtual ~ScreenHost() = default;

  /// Whether the program has the screen. Only then the others below are called for it, Refresh apart.
  virtual bool Has(ScreenId id) const = 0;

  /// Fills a screen from the document, because its gate lets it open. What the gate has to compute for it is
  /// in the document by then. Reaches the screen on display too, when its step is pressed again.
  virtual void Prepare(ScreenId id) = 0;

  /// Hides the screen on display and shows this one.
  virtual void Show(ScreenId id) = 0;

  /// The screen has just come on display in place of another (a window that returns from being minimised does
  /// not enter). What a screen does "on entry" belongs here.
  virtual void Entered(ScreenId id) = 0;

  /// The screen is about to leave the display: it stops its timers.
  virtual void Left(ScreenId id) = 0;

  /// Reads the document again, on display or not. No calculation, no message, and nothing in the document
  /// changes.
  virtual void Refresh(ScreenId id) = 0;

  /// Computes the response spectra of all seed waves that lack one, on a worker behind its progress dialog.
  /// False, and nothing stored, when that fails. Tells the user nothing.
  virtual bool ComputeMissingSpectra() = 0;

  /// Computes the spectra of all planes afresh. False: the coefficients are unusable, the user has been told,
  /// and the program ends with exit status 1.
  virtual bool CalculateFaultSpectra() = 0;

  /// Adjusts the first seed wave to the first target spectrum, on a worker behind its progress dialog, and
  /// stores the result. Nothing is stored when that does not converge. Tells the user nothing.
  virtual AdjustResult RunRespAdjustment() = 0;
};

}  // namespace tremlo

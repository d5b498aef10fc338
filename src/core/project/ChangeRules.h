#pragma once

#include "core/project/WorkProcedure.h"

#include <functional>

namespace tremlo {

/// How a click on one row of a list of which exactly one is chosen ended.
enum class ChoiceOutcome {
  Applied,   ///< this row is marked, all others are not
  Kept,      ///< the row is the chosen one already: its mark comes back, nothing has changed
  Declined,  ///< the mark of this row goes off again, nothing has changed
};

/// What a change in an early step costs in the later ones: one function for each action of the user on the
/// guideline route. Each asks first what has to be asked and changes nothing until every question has its
/// Yes. Then it clears what the change invalidates, applies the change and marks the document as modified.
/// Where the screen alone can apply the change, the function is called Begin... and says whether to go on.
///
/// A false, or Declined, means: the screen puts the old value back.
class ChangeRules {
 public:
  ChangeRules(CMorvaneDoc& doc, Prompt& prompt, WorkProcedure& procedure)
      : m_doc(doc), m_prompt(prompt), m_procedure(procedure) {}

  /// Before each change of the position or the plane zone: a cell left, a paste, a label picked, the first
  /// move of a drag, and the zone button before its dialog opens.
  bool BeginSiteChange();

  /// Before the dialog of the service's parameters opens.
  bool BeginApiParameters();

  /// Before faults are acquired, on the thread of the user interface. With an unknown plane zone the
  /// acquisition will end at once, so nothing is cleared for it.
  bool BeginAcquisition(bool zoneKnown);

  /// Before the dialog of the adjustment settings opens.
  bool BeginAdjustSettings();

  /// Planes are counted from 0; one that is not there changes nothing. The caller runs the attenuation
  /// relation after a change of class or method.
  bool SetGroundClass(std::size_t fault, std::size_t plane, const QString& groundClass);
  bool SetAttenuationMethod(const QString& method);
  bool SetPlaneUse(std::size_t fault, std::size_t plane, bool use);
  bool SetAllPlanesUse(bool use);

  /// One change of a wave's time step or samples, however many samples it touches. `apply` writes it to the
  /// record; its spectrum is invalid afterwards.
  bool ChangeWaveData(const QString& waveName, const std::function<void()>& apply);

  /// Removes every wave of the name and makes the first that is left the current one. When the wave is the
  /// base spectrum, the Yes to the first question has cleared that even if the wave is then kept.
  bool DeleteWave(const QString& name);

  /// The record takes the new name, and so does what refers to it. Asks nothing.
  void RenameWave(std::size_t index, const QString& newName);

  bool SetNeighbourUse(const QString& name, bool use);
  bool SetAllNeighbourUse(bool use);

  ChoiceOutcome SelectLowerSpectrum(std::size_t row);
  ChoiceOutcome ChooseBaseSpectrum(const QString& label);

  /// The record becomes the one adopted wave. Asks nothing.
  void AdoptWave(std::size_t index);

 private:
  /// A Yes counts only for the project that was asked about.
  bool Ask(const QString& question);
  bool AskBaseChange();
  bool ClearBaseIf(bool isBase);

  CMorvaneDoc& m_doc;
  Prompt& m_prompt;
  WorkProcedure& m_procedure;
};

}  // namespace tremlo

#pragma once

#include "core/ask/Prompt.h"
#include "core/project/MorvaneDoc.h"
#include "core/project/ScreenHost.h"

namespace tremlo {

/// The gate of each screen: whether it may open now, the message when it may not, and what has to be computed
/// and prepared before it opens. A refusal leaves the document as it was.
class ScreenGates {
 public:
  ScreenGates(CMorvaneDoc& doc, Prompt& prompt, ScreenHost& host)
      : m_doc(doc), m_prompt(prompt), m_host(host) {}

  /// A screen without a gate of its own always passes.
  SwitchOutcome Pass(ScreenId id);

 private:
  SwitchOutcome PassDamsiteWave();
  SwitchOutcome PassFaultSpectra();
  SwitchOutcome PassBaseSpectrum();
  SwitchOutcome PassAdjustSeismicWave();
  SwitchOutcome PassVisualization();
  SwitchOutcome PassRespVisualization();
  /// False when the missing spectra could not be computed; the user has been told.
  bool ComputeMissingSpectra();
  SwitchOutcome Prepared(ScreenId id);
  SwitchOutcome Refused(const QString& message);

  CMorvaneDoc& m_doc;
  Prompt& m_prompt;
  ScreenHost& m_host;
};

}  // namespace tremlo

#pragma once

#include "core/location/ApiParameterSet.h"

#include <QString>

namespace tremlo {

/// The questions that guard a change, word for word. Every screen asks with these.

/// The end that all questions about the base spectrum share.
QString BaseChangeMessage(const QString& baseSpectrumName);
/// What is asked before the base spectrum is changed or lost: "既に基準スペクトルとして" and
/// BaseChangeMessage.
QString BaseChangeQuestion(const QString& baseSpectrumName);
/// The same for the adopted wave. No screen shows it: choosing another base asks BaseChangeQuestion.
QString SeedChangeMessage(const QString& seedAdoptedName);

QString SiteChangeQuestion();
/// Ends in a line for each parameter of the service.
QString ApiParametersQuestion(const ApiParameterSet& parameters);
QString AdjustSettingsQuestion();
QString AdjustedWavesQuestion();     ///< the base wave changes while a wave is adjusted
QString AdjustedWaveDataQuestion();  ///< another wave changes that is adjusted itself
QString DeleteWaveQuestion(const QString& name);
QString LeaveFlowCheckQuestion();  ///< a chart is being decided
QString ChangeProcedureQuestion();

}  // namespace tremlo

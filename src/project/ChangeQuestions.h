#pragma once

#include <QString>
#include <QStringList>

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
/// `parameterLines`: one line per parameter of the service, title and value.
QString ApiParametersQuestion(const QStringList& parameterLines);
QString AdjustSettingsQuestion();
QString AdjustedWavesQuestion();     ///< the base wave changes while a wave is adjusted
QString AdjustedWaveDataQuestion();  ///< another wave changes that is adjusted itself
QString DeleteWaveQuestion(const QString& name);
QString LeaveFlowCheckQuestion();  ///< a chart is being decided
QString ChangeProcedureQuestion();

}  // namespace tremlo

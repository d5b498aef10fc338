#include "core/location/HazardService.h"

#include "core/files/WholeFile.h"

#include <QDir>

namespace tremlo {

namespace {

std::string_view View(const QByteArray& bytes) {
  return {bytes.constData(), static_cast<std::size_t>(bytes.size())};
}

}  // namespace

HazardService::HazardService(const ServiceSettings& settings, Prompt& prompt, std::stop_token stop)
    : m_settings(settings),
      m_prompt(prompt),
      m_client(settings.hazard, settings.certificateFile),
      m_stop(std::move(stop)) {}

ServiceOutcome HazardService::SearchMeshFaults(FaultSearchRequest& request, std::vector<FaultInfo>& faults) {
  if (const auto message = CheckSearchParameters(request)) return RefuseParameter(*message);
  QByteArray text;
  if (!FetchJson(ServiceUrl(m_settings.hazardAddress, SearchPath(request)), text))
    return ServiceOutcome::NoAnswer;
  const bool withProbabilities = request.modeText == u"C";
  return Tell(ParseMeshAnswer(View(text), withProbabilities, faults), QStringLiteral("メッシュ別被害地震"));
}

ServiceOutcome HazardService::FetchActivityModel(FaultSearchRequest& request, const QString& ltecode,
                                                 FaultInfo& fault, bool& erase) {
  erase = ltecode.contains(u"ASG");
  if (erase) return ServiceOutcome::Done;
  if (const auto message = CheckActivityParameters(request)) return RefuseParameter(*message);
  QByteArray text;
  if (!FetchJson(ServiceUrl(m_settings.hazardAddress, ActivityPath(request, ltecode)), text))
    return ServiceOutcome::NoAnswer;
  return Tell(ParseActivityAnswer(View(text), fault, erase),
              QStringLiteral("地震活動モデル情報, ") + ltecode);
}

bool HazardService::FetchToFile(const QString& url) {
  m_lastUrl = url;
  m_lastMessage.clear();
  switch (m_client.GetToFile(url, AnswerPath(), m_stop)) {
    case HttpResult::Done:
      return true;
    case HttpResult::BadAddress:
      Show(QStringLiteral("J-SHISにアクセスするためのセッションが確立できませんでした。(") + url + u')',
           PromptIcon::Stop);
      return false;
    case HttpResult::FileFailed:
      Show(QStringLiteral("J-SHISからの断層データを書き込むファイルを開けませんでした。(") + url + u')',
           PromptIcon::Stop);
      return false;
    case HttpResult::BrokenOff:
    case HttpResult::Failed:
      return false;
  }
  return false;
}

bool HazardService::ReadFetchedFile(const QString& url, QByteArray& text) {
  if (ReadWholeFile(AnswerPath(), text)) return true;
  Show(QStringLiteral("Jsonファイルを開くことができませんでした。(") + url + u')', PromptIcon::Stop);
  return false;
}

bool HazardService::FetchJson(const QString& url, QByteArray& text) {
  return FetchToFile(url) && ReadFetchedFile(url, text);
}

ServiceOutcome HazardService::RefuseParameter(const QString& message) {
  m_lastUrl.clear();
  if (message != m_toldParameter) Show(message, PromptIcon::Stop);
  m_lastMessage = m_toldParameter = message;
  return ServiceOutcome::BadParameter;
}

void HazardService::Show(const QString& text, PromptIcon icon) {
  m_lastMessage = text;
  m_prompt.Tell(text, icon);
}

QString HazardService::AnswerPath() const {
  return QDir(m_settings.answerFolder).filePath(QStringLiteral("j-shis.json"));
}

/// Shows the message that belongs to the outcome of a parsed answer and returns the outcome. `query` says in
/// the messages what was asked.
ServiceOutcome HazardService::Tell(const AnswerResult& result, const QString& query) {
  if (result.outcome == ServiceOutcome::BadAnswer)
    Show(QStringLiteral("Jsonファイルの文法エラーです。(") + query + u')', PromptIcon::Stop);
  if (result.outcome == ServiceOutcome::NothingFound)
    Show(QStringLiteral("指定された現場位置とAPIパラメータの断層データはありません。(") + query + u')',
         PromptIcon::Warning);
  if (result.outcome == ServiceOutcome::TypeFault) Show(result.faultText, PromptIcon::Stop);
  return result.outcome;
}

}  // namespace tremlo

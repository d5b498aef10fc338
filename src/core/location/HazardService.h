#pragma once

#include "core/ask/Prompt.h"
#include "core/location/FaultSearchRequest.h"
#include "core/location/HazardAnswer.h"
#include "core/location/HttpClient.h"

#include <QByteArray>

namespace tremlo {

/// The client of the public seismic hazard service. Requests go out one after the other, each asked once, and
/// every answer passes through the file "j-shis.json", which stays behind. Failures are told through the
/// prompt, but for those of the network: an online program has said already when the service is not there. A
/// parameter that is out of its range is told once, however many sources are asked for. Serves one thread.
class HazardService {
 public:
  /// `settings` and `prompt` must outlive the service. A stop breaks the request at hand off, which then is
  /// one without an answer, and lets none go out any more.
  HazardService(const ServiceSettings& settings, Prompt& prompt, std::stop_token stop = {});

  /// Asks which earthquake sources matter most at the request's position and appends a record per source in
  /// the service's rank order. Any outcome but Done and TypeFault leaves the list as it was.
  ServiceOutcome SearchMeshFaults(FaultSearchRequest& request, std::vector<FaultInfo>& faults);

  /// Asks for the activity and the planes of the source `ltecode` and fills `fault` with them. `erase` is set
  /// when the source must leave the list: one of the Sagami trough ("ASG"), which is not asked for, or one
  /// without rectangles. Any other failure leaves the record as it was.
  ServiceOutcome FetchActivityModel(FaultSearchRequest& request, const QString& ltecode, FaultInfo& fault,
                                    bool& erase);

  /// One GET into the answer file. True when the whole answer was written.
  bool FetchToFile(const QString& url);
  bool ReadFetchedFile(const QString& url, QByteArray& text);
  bool FetchJson(const QString& url, QByteArray& text);

  /// The address asked last and what was said about it; empty when none was or nothing was said.
  const QString& LastUrl() const { return m_lastUrl; }
  const QString& LastMessage() const { return m_lastMessage; }

 private:
  ServiceOutcome RefuseParameter(const QString& message);
  void Show(const QString& text, PromptIcon icon);
  QString AnswerPath() const;
  ServiceOutcome Tell(const AnswerResult& result, const QString& query);

  const ServiceSettings& m_settings;
  Prompt& m_prompt;
  HttpClient m_client;
  std::stop_token m_stop;
  QString m_lastUrl;
  QString m_lastMessage;
  QString m_toldParameter;
};

}  // namespace tremlo

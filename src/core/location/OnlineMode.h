#pragma once

#include "core/ask/Prompt.h"
#include "core/location/ServiceSettings.h"

namespace tremlo {

/// Whether one GET could be completed to the file "RecvTemp" of the answer folder. The request is always sent
/// twice, and the second answer is kept; its status code is not looked at. A failure in either pass is one of
/// the probe, also when the server insists on a certificate of the client: the library does not tell that
/// apart (with TLS 1.2 it is any failed handshake, with 1.3 a connection that breaks while the request is
/// sent or the answer read), and a second pass without a certificate would end like the first. A server that
/// asks for one and does without is answered in both.
bool ProbeUrl(const ServiceSettings& settings, const QString& url);

/// Whether both services answered. Both are always tried, with a pause between; the one that failed is named
/// through the prompt. Blocks as long as the timeouts and attempts allow.
bool ProbeServices(const ServiceSettings& settings, Prompt& prompt);

/// Whether the program treats itself as online: one flag per run, stored nowhere.
class OnlineMode {
 public:
  bool IsOnline() const { return m_online; }

  /// Takes the result of the probes, as at the start of the program.
  void Probe(const ServiceSettings& settings, Prompt& prompt);

  /// The user turns the flag over: going offline asks nobody, going online takes the result of the probes.
  void Toggle(const ServiceSettings& settings, Prompt& prompt);

  /// What the caption of the window says about the mode: nothing when online.
  QString CaptionMark() const;

 private:
  bool m_online = false;
};

/// The question before ClearMapCache.
inline constexpr char16_t kClearMapCacheQuestion[] =
    u"地図画像キャッシュをクリアします。\n以下の影響がありますがよろしいですか。\n\n・地図画像を国土地理院か"
    u"ら再度取得"
    u"します。";

/// Deletes the folder `_cache` of `programFolder` with all it holds. Links are removed, the folder's own
/// included, and what they lead to is left. True when it is gone, also when there was none.
bool ClearMapCache(const QString& programFolder);

}  // namespace tremlo

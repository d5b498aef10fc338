#pragma once

#include "core/ask/Prompt.h"
#include "window/graphs/CommandGate.h"
#include "window/location/LinkLabel.h"

namespace tremlo {

/// Whose map it is, and what its terms are called.
inline constexpr char16_t kMapCredit[] =
    u"この地図は国土地理院発行の地理院タイル『標準地図』を使用しています。";
inline constexpr char16_t kMapTerms[] = u"国土地理院コンテンツ利用規約";

/// The lines below a map: whose map it is, and the terms of the tiles as a link that opens in the browser.
class MapAttribution : public LinkLabel {
  Q_OBJECT
 public:
  /// The prompt and the gate outlive it.
  MapAttribution(Prompt& prompt, CommandGate& gate, QWidget* parent);

 protected:
  void changeEvent(QEvent* event) override;
};

}  // namespace tremlo

#pragma once

#include "core/ask/Prompt.h"
#include "window/graphs/CommandGate.h"
#include "window/location/LinkLabel.h"

namespace tremlo {

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

#pragma once

#include "support/ProcedureParts.h"
#include "window/graphs/Screen.h"

namespace tremlo::test {

/// Passes what the procedure asks for on to the one screen that is there, and writes it down.
class OneScreenHost : public RecordingHost {
 public:
  OneScreenHost(CMorvaneDoc& doc, QStringList& log, ScreenId id) : RecordingHost(doc, log), m_id(id) {}

  void Prepare(ScreenId id) override {
    RecordingHost::Prepare(id);
    if (IsShown(id)) screen->Prepare();
  }
  void Entered(ScreenId id) override {
    RecordingHost::Entered(id);
    if (IsShown(id)) screen->Entered();
  }
  void Left(ScreenId id) override {
    RecordingHost::Left(id);
    if (IsShown(id)) screen->Left();
  }
  void Refresh(ScreenId id) override {
    RecordingHost::Refresh(id);
    if (IsShown(id)) screen->Refresh();
  }

  Screen* screen = nullptr;

 private:
  bool IsShown(ScreenId id) const { return screen && id == m_id; }

  const ScreenId m_id;
};

}  // namespace tremlo::test

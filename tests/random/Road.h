#pragma once

#include "core/project/FlowStep.h"
#include "random/RandomHands.h"

#include <initializer_list>

namespace tremlo {
class CMorvaneApp;
}

namespace tremlo::test {

/// The user who wants to get on: finds by its words the control that leads to the next stage of the work, so
/// that runs get as far as a base spectrum, an adopted wave and its adjustment.
class Road {
 public:
  Road(RandomSource& random, RandomHands& hands) : m_random(random), m_hands(hands) {}

  void SetProgram(CMorvaneApp* app) { m_app = app; }

  /// Does the next thing. False when there is none: then anything may be done.
  bool GoOn();

 private:
  bool Answer(QWidget& dialog);
  bool GoOnGuideline();
  bool GoOnResponse();
  bool FixProcedure();
  bool At(ScreenId screen) const;
  bool Press(const QStringList& texts);
  bool PressStep(FlowStep step);
  /// On the screen of a step: does `work` there; elsewhere goes there.
  template <class Work>
  bool On(FlowStep step, std::initializer_list<ScreenId> screens, Work work);
  bool TickLastColumn();
  bool TickAny();

  RandomSource& m_random;
  RandomHands& m_hands;
  CMorvaneApp* m_app = nullptr;
};

}  // namespace tremlo::test

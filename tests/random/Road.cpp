#include "random/Road.h"

#include "window/graphs/Spread7.h"
#include "window/shell/MorvaneApp.h"

#include <QApplication>
#include <QMessageBox>

#include <algorithm>

namespace tremlo::test {

namespace {

constexpr std::size_t kEnoughSamples = 32;
constexpr std::size_t kEnoughWaves = 2;

}  // namespace

bool Road::GoOn() {
  QWidget* const frame = m_app ? m_app->Frame() : nullptr;
  QWidget* const window = FrontmostWindow(frame);
  if (!window || window->windowType() == Qt::Popup) return false;
  if (window != frame) return Answer(*window);
  if (window->isMinimized()) {
    window->showNormal();
    return false;
  }
  return m_app->Document().guidelineRoute ? GoOnGuideline() : GoOnResponse();
}

bool Road::Answer(QWidget& dialog) {
  const auto press = [&](const QStringList& texts) {
    QAbstractButton* const button = ButtonCalled(dialog, texts);
    if (button) m_hands.Click(*button);
    return button != nullptr;
  };
  if (dialog.objectName() == QStringLiteral("dlgTop")) {
    if (m_random.Percent(50)) {
      auto* const route = dialog.findChild<QAbstractButton*>(
          m_random.Percent(70) ? QStringLiteral("guideline") : QStringLiteral("response"));
      if (route && route->isEnabled()) return m_hands.Click(*route), true;
    }
    return press({QStringLiteral("OK")});
  }
  const int drawn = m_random.Below(100);
  if (qobject_cast<QMessageBox*>(&dialog)) {
    if (drawn < 70 && press({QStringLiteral("はい(Y)"), QStringLiteral("OK")})) return true;
    return press({QStringLiteral("いいえ(N)"), QStringLiteral("OK")});
  }
  if (drawn < 75 && press({QStringLiteral("YES"), QStringLiteral("OK")})) return true;
  return drawn < 95 && press({QStringLiteral("NO"), QStringLiteral("やり直す"), QStringLiteral("閉じる")});
}

bool Road::At(ScreenId screen) const {
  return m_app->Procedure().ActiveScreen() == screen;
}

bool Road::Press(const QStringList& texts) {
  QAbstractButton* const button = ButtonCalled(*m_app->Frame(), texts);
  if (button) m_hands.Click(*button);
  return button != nullptr;
}

bool Road::PressStep(FlowStep step) {
  FlowSteps* const steps = m_app->Frame()->Pane()->StepsOnDisplay();
  if (!steps->Holds(step) || !steps->Button(step)->isEnabled()) return false;
  m_hands.Click(*steps->Button(step));
  return true;
}

template <class Work>
bool Road::On(FlowStep step, std::initializer_list<ScreenId> screens, Work work) {
  const bool there =
      std::any_of(screens.begin(), screens.end(), [this](ScreenId screen) { return At(screen); });
  return there ? work() : PressStep(step);
}

bool Road::TickLastColumn() {
  std::vector<std::pair<CSpread7*, Cell>> cells;
  for (CSpread7* grid : Workable<CSpread7>(*m_app->Frame()))
    for (const Cell& cell : CheckCells(*grid, true)) cells.emplace_back(grid, cell);
  if (cells.empty()) return false;
  const auto& [grid, cell] = m_random.Pick(cells);
  m_hands.PressCell(*grid, cell);
  return true;
}

bool Road::TickAny() {
  std::vector<std::pair<CSpread7*, Cell>> cells;
  for (CSpread7* grid : Workable<CSpread7>(*m_app->Frame()))
    for (const Cell& cell : CheckCells(*grid, false)) cells.emplace_back(grid, cell);
  if (cells.empty()) return false;
  const auto& [grid, cell] = m_random.Pick(cells);
  m_hands.PressCell(*grid, cell);
  return true;
}

bool Road::FixProcedure() {
  if (At(ScreenId::FlowCheck))
    return Press(
        {m_random.Percent(50) ? QStringLiteral("Q&Aで確認") : QStringLiteral("マウスクリックで確認")});
  if (At(ScreenId::Flowchart1)) return false;  // its question is about to come
  if (!At(ScreenId::Flowchart2)) return PressStep(FlowStep::FlowCheck);
  if (m_random.Percent(30)) return Press({QStringLiteral("作業手順の確定")});
  std::vector<QAbstractButton*> boxes;
  for (QAbstractButton* button : Workable<QAbstractButton>(*m_app->Frame()->ScreenOnDisplay()))
    if (button->isCheckable() && !button->isChecked()) boxes.push_back(button);
  if (boxes.empty()) return Press({QStringLiteral("作業手順の確定")});
  m_hands.Click(*m_random.Pick(boxes));
  return true;
}

bool Road::GoOnGuideline() {
  const CMorvaneDoc& doc = m_app->Document();
  const std::vector<CSeismicWave>& waves = doc.seedWaves.Records();
  const auto any = [&](auto holds) { return std::any_of(waves.begin(), waves.end(), holds); };
  if (!doc.flowFixed) return FixProcedure();
  const auto sound = std::count_if(waves.begin(), waves.end(), [](const CSeismicWave& wave) {
    return wave.acc.size() >= kEnoughSamples && wave.timeStep > 0.0;
  });
  if (static_cast<std::size_t>(sound) < kEnoughWaves)
    return On(FlowStep::OrigSeismicWave, {ScreenId::OrigSeismicWave},
              [this] { return Press({QStringLiteral("波形データ読込")}); });
  if (doc.flowFaultSource && doc.faults.empty() && m_random.Percent(60)) {
    return On(FlowStep::FaultSpectra, {ScreenId::MakeSeismicWave1, ScreenId::MakeSeismicWave2}, [this] {
      if (At(ScreenId::MakeSeismicWave2)) return Press({QStringLiteral("断層データの再設定")});
      if (!m_app->Online().IsOnline() && m_random.Percent(70))
        return m_app->Frame()->Menu()->online->trigger(), true;
      if (m_random.Percent(70)) m_hands.Misbehave(true);
      return Press({QStringLiteral("断層データを取得")});
    });
  }
  if (doc.flowFaultSource && !doc.faults.empty() && m_random.Percent(15)) {
    return On(FlowStep::FaultSpectra, {ScreenId::MakeSeismicWave1, ScreenId::MakeSeismicWave2}, [this] {
      return At(ScreenId::MakeSeismicWave1) ? Press({QStringLiteral("距離減衰の計算")}) : TickAny();
    });
  }
  if (doc.flowNeighbourWave && !any([](const CSeismicWave& wave) { return wave.siteUse; }) &&
      m_random.Percent(50))
    return On(FlowStep::DamsiteWave, {ScreenId::DamsiteWave}, [this] { return TickLastColumn(); });
  if (m_random.Percent(6))
    return On(FlowStep::LowerSpectrum, {ScreenId::LowerSpectrum}, [this] { return TickAny(); });
  if (doc.baseSpectrumName.isEmpty() || m_random.Percent(5))
    return On(FlowStep::BaseSpectrum, {ScreenId::BaseSpectrum}, [this] { return TickLastColumn(); });
  if (!doc.seedAdopted)
    return On(FlowStep::AdjustSeismicWave, {ScreenId::AdjustSeismicWave}, [this] { return TickAny(); });
  if (!any([](const CSeismicWave& wave) { return wave.adjusted; }))
    return On(FlowStep::AdjustSeismicWave, {ScreenId::AdjustSeismicWave},
              [this] { return TickLastColumn(); });
  return On(FlowStep::Visualization, {ScreenId::Visualization}, [] { return false; });
}

bool Road::GoOnResponse() {
  const CMorvaneDoc& doc = m_app->Document();
  const bool wave = doc.seedWaves.Count() > 0 && doc.seedWaves.At(0).acc.size() >= kEnoughSamples;
  const bool target = doc.respSpectra.Count() > 0 && doc.respSpectra.At(0).periods.size() >= 2;
  if (!wave)
    return On(FlowStep::RespOrigSeismicWave, {ScreenId::RespOrigSeismicWave},
              [this] { return Press({QStringLiteral("波形データ読込")}); });
  if (!target)
    return On(FlowStep::RespAdjustSpectrum, {ScreenId::RespAdjustSpectrum},
              [this] { return Press({QStringLiteral("加速度応答スペクトル読込")}); });
  return On(FlowStep::RespVisualization, {ScreenId::RespVisualization}, [] { return false; });
}

}  // namespace tremlo::test

#include "core/project/FlowStep.h"

namespace tremlo {

namespace {

using enum HighlightMoment;

/// In the order of FlowStep.
constexpr std::array<FlowStepRow, 13> kRows = {{
    {FlowStep::Field, u"現場設定", ScreenId::Field, BeforeSwitch},
    {FlowStep::FlowCheck, u"作業手順の確認", ScreenId::FlowCheck, BeforeSwitch},
    {FlowStep::OrigSeismicWave, u"波形登録", ScreenId::OrigSeismicWave, BeforeSwitch},
    {FlowStep::DamsiteWave, u"現場近隣地震波形", ScreenId::DamsiteWave, AfterSwitch},
    {FlowStep::FaultSpectra, u"距離減衰式（断層）", ScreenId::MakeSeismicWave1, BeforeSwitch},
    {FlowStep::LowerSpectrum, u"下限スペクトル", ScreenId::LowerSpectrum, BeforeSwitch},
    {FlowStep::BaseSpectrum, u"基準スペクトル設定", ScreenId::BaseSpectrum, BeforeSwitch},
    {FlowStep::AdjustSeismicWave, u"原種波形の振幅調整", ScreenId::AdjustSeismicWave, AfterSwitch},
    {FlowStep::Visualization, u"可視化", ScreenId::Visualization, AfterSwitch},
    {FlowStep::Print, u"印刷", std::nullopt, AtNextPaint},
    {FlowStep::RespOrigSeismicWave, u"原種波形設定", ScreenId::RespOrigSeismicWave, BeforeSwitch},
    {FlowStep::RespAdjustSpectrum, u"調整用スペクトル設定", ScreenId::RespAdjustSpectrum, BeforeSwitch},
    {FlowStep::RespVisualization, u"可視化", ScreenId::RespVisualization, AfterSwitch},
}};

}  // namespace

const FlowStepRow& RowOf(FlowStep step) {
  return kRows[static_cast<std::size_t>(step)];
}

}  // namespace tremlo

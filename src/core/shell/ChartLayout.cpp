#include "core/shell/ChartLayout.h"

namespace tremlo {

namespace {

constexpr double kTip = 18.0;  ///< of the boxes that ask yes or no: pointed at both ends

/// By ChartBox.
constexpr std::array<QRect, kChartBoxes.size()> kBoxes = {
    QRect{296, 108, 250, 68}, QRect{296, 222, 250, 68}, QRect{296, 336, 250, 68},
    QRect{24, 452, 226, 68},  QRect{642, 108, 260, 84}, QRect{642, 256, 260, 84},
    QRect{354, 592, 134, 30}, QRect{705, 450, 134, 30}, QRect{705, 592, 134, 30},
};

bool AsksYesOrNo(ChartBox box) {
  return box <= ChartBox::Amplitude2 && box != ChartBox::PhaseQ4;
}

}  // namespace

CDPoly OutlineOf(ChartBox box) {
  const QRect& place = kBoxes[static_cast<std::size_t>(box)];
  const double left = place.x(), right = place.x() + place.width();
  const double top = place.y(), bottom = place.y() + place.height(), middle = (top + bottom) / 2;
  const double tip = AsksYesOrNo(box) ? kTip : 0.0;
  CDPoly outline;
  outline.Add(left + tip, top);
  outline.Add(right - tip, top);
  if (tip > 0.0) outline.Add(right, middle);
  outline.Add(right - tip, bottom);
  outline.Add(left + tip, bottom);
  if (tip > 0.0) outline.Add(left, middle);
  outline.UpdateBox();
  return outline;
}

std::optional<ChartBox> BoxAt(QPoint point) {
  for (const ChartBox box : kChartBoxes)
    if (OutlineOf(box).Contains(point.x(), point.y())) return box;
  return std::nullopt;
}

const std::vector<ChartLine>& ChartLines() {
  static const std::vector<ChartLine> lines = {
      // From the start to the first question of each characteristic.
      {{{421, 44}, {421, 108}}},
      {{{421, 54}, {772, 54}, {772, 108}}},
      // YES down the phase questions to the seed wave, NO to the collecting of material.
      {{{421, 176}, {421, 222}}},
      {{{421, 290}, {421, 336}}},
      {{{421, 404}, {421, 592}}},
      {{{296, 142}, {137, 142}, {137, 452}}},
      {{{296, 256}, {137, 256}}, false},
      {{{296, 370}, {137, 370}}, false},
      {{{137, 520}, {137, 607}, {354, 607}}},
      // YES down the amplitude questions to the base spectrum, NO past each of them.
      {{{772, 192}, {772, 256}}},
      {{{902, 150}, {928, 150}, {928, 298}, {902, 298}}},
      {{{772, 340}, {772, 450}}},
      {{{642, 298}, {620, 298}, {620, 465}, {705, 465}}},
  };
  return lines;
}

const std::vector<ChartLabel>& ChartLabels() {
  static const std::vector<ChartLabel> labels = {
      {LabelKind::Start, u"スタート", {361, 14, 120, 30}},
      {LabelKind::Heading, u"位相特性", {26, 74, 100, 22}},
      {LabelKind::Heading, u"振幅特性", {620, 74, 100, 22}},
      {LabelKind::YesOrNo, u"YES", {430, 190, 32, 18}},
      {LabelKind::YesOrNo, u"YES", {430, 304, 32, 18}},
      {LabelKind::YesOrNo, u"YES", {430, 418, 32, 18}},
      {LabelKind::YesOrNo, u"NO", {264, 122, 28, 18}},
      {LabelKind::YesOrNo, u"NO", {264, 236, 28, 18}},
      {LabelKind::YesOrNo, u"NO", {264, 350, 28, 18}},
      {LabelKind::YesOrNo, u"YES", {146, 534, 32, 18}},
      {LabelKind::YesOrNo, u"YES", {781, 214, 32, 18}},
      {LabelKind::YesOrNo, u"NO", {904, 130, 28, 18}},
      {LabelKind::YesOrNo, u"YES", {781, 358, 32, 18}},
      {LabelKind::YesOrNo, u"NO", {612, 278, 28, 18}},
      {LabelKind::Reference,
       u"参考：国営造成農業用ダム耐震性能マニュアル（平成24年3月）　P.17",
       {14, 642, 920, 18}},
  };
  return labels;
}

}  // namespace tremlo

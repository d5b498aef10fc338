#include "core/project/LastAcquisition.h"

namespace tremlo {

namespace {

/// Of more sources the names would fill the screen, or the tool tip.
constexpr std::size_t kMostNames = 5;
constexpr std::size_t kMostLongNames = 50;

QString Line(const CMorvaneDoc& doc, std::size_t mostNames) {
  return doc.lastAcquisition ? AcquisitionLine(*doc.lastAcquisition, mostNames) : QString();
}

}  // namespace

QString LastAcquisitionLine(const CMorvaneDoc& doc) {
  return Line(doc, kMostNames);
}

QString LongLastAcquisitionLine(const CMorvaneDoc& doc) {
  return Line(doc, kMostLongNames);
}

}  // namespace tremlo

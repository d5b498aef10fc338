#include "core/project/LastAcquisition.h"

#include <limits>

namespace tremlo {

namespace {

/// Of more sources the names would fill the screen.
constexpr std::size_t kMostNames = 5;

QString Line(const CMorvaneDoc& doc, std::size_t mostNames) {
  return doc.lastAcquisition ? AcquisitionLine(*doc.lastAcquisition, mostNames) : QString();
}

}  // namespace

QString LastAcquisitionLine(const CMorvaneDoc& doc) {
  return Line(doc, kMostNames);
}

QString WholeLastAcquisitionLine(const CMorvaneDoc& doc) {
  return Line(doc, std::numeric_limits<std::size_t>::max());
}

}  // namespace tremlo

#pragma once

#include "core/location/ApiParameterSet.h"

#include <QString>

#include <array>
#include <cstdint>

namespace tremlo {

/// The hazard service's tables: what an index of `ApiParameterSet` stands for. An index outside its table
/// gives an empty label and an empty key (0 for the threshold).

inline constexpr std::int32_t kIntensityCount = 4;
inline constexpr std::int32_t kModeCount = 2;
inline constexpr std::int32_t kCaseCount = 2;
inline constexpr std::int32_t kPeriodCount = 2;
inline constexpr std::int32_t kSearchVersionCount = 14;    ///< map versions that the mesh search knows
inline constexpr std::int32_t kActivityVersionCount = 16;  ///< map versions that the activity model knows

/// The versions in the order in which they are offered, newest first. The index is what is stored.
inline constexpr std::array<std::int32_t, kActivityVersionCount> kActivityVersionOrder = {
    15, 14, 13, 12, 11, 10, 0, 1, 2, 3, 4, 5, 6, 7, 8, 9};
inline constexpr std::array<std::int32_t, kSearchVersionCount> kSearchVersionOrder = {
    13, 12, 11, 10, 0, 1, 2, 3, 4, 5, 6, 7, 8, 9};

/// `ijma` of the query: ten times the lower bound of the intensity.
std::int32_t IntensityThreshold(std::int32_t index);

QString ModeKey(std::int32_t index);
QString VersionKey(std::int32_t index);
QString CaseKey(std::int32_t index);
QString PeriodKey(std::int32_t index);

QString IntensityLabel(std::int32_t index);
QString CatastropheWeightLabel(double weight);
QString ModeLabel(std::int32_t index);
QString SearchVersionLabel(std::int32_t index);
QString ActivityVersionLabel(std::int32_t index);
QString CaseLabel(std::int32_t index);
QString PeriodLabel(std::int32_t index);

/// What a question that concerns fetched faults says about the parameters: a heading and one line for each of
/// the seven, to be put behind the question.
QString CurrentParametersText(const ApiParameterSet& parameters);

}  // namespace tremlo

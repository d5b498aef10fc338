#pragma once

#include "core/records/Record.h"

#include <string_view>

namespace tremlo {

/// gal, cm/s2, m/s2, mm/s2, g (980.665 gal), mg, in/s2, in the spellings in use (cm/s/s, cm/sec2, cm/s**2,
/// cm/s^2, Gal, ...); nothing else may stand in the word. Nothing for any other unit.
std::optional<RecordUnit> UnitOfWord(std::string_view word);

/// All units that a text names, each once. A lone "g" counts in brackets, as a text of its own and behind
/// "unit" only.
std::vector<RecordUnit> UnitsInText(std::string_view text);

/// The unit of a reading: the answer, else what the file states, else a question. An answer that differs from
/// the file is told.
std::optional<RecordUnit> ChooseUnit(const std::optional<RecordUnit>& stated, const RecordAnswers& answers,
                                     RecordReading& reading);

/// The same for the time step (s); a stated one counts when it is a finite number above 0.
std::optional<double> ChooseTimeStep(const std::optional<double>& stated, const RecordAnswers& answers,
                                     RecordReading& reading);

/// Takes the samples of a component, still in the unit of the file, to gal.
void ToGal(RecordComponent& component, const std::optional<RecordUnit>& unit);

}  // namespace tremlo

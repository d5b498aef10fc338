#pragma once

#include <QString>

#include <vector>

namespace tremlo {

/// How what a project stores agrees with what was computed anew from its own input.
enum class VerifyOutcome {
  Equal,      ///< bit for bit; of a rule: it holds
  Close,      ///< to kCloseDifference, as another processor or library computes it
  Differs,    ///< of a rule: it is broken
  Unchecked,  ///< what it takes is not there
};

/// The largest difference that counts as close. A difference is relative: |stored - anew| over the larger of
/// the two; for the samples of a wave over its largest sample, and for lengths in km over 1 km at least.
inline constexpr double kCloseDifference = 1e-9;

/// One line of a verification. Two lines may have one key: what could be checked of it, and what could not.
struct VerifyItem {
  QString key;   ///< members of the document: "seedWaves[0].accSpec", "faults.planeDepth", "invariants.base"
  QString name;  ///< for people
  VerifyOutcome outcome = VerifyOutcome::Equal;
  /// The largest one. Infinite where the lists are not of one length or only one of two is a number; NaN
  /// where there is none to tell: unchecked, and a broken rule.
  double difference = 0.0;
  QString at;      ///< where the largest difference is: "faults[2].shortestSpectrum[0][15]"; else empty
  QString place;   ///< the same for people: "断層 3「...」の面 1、周期 0.5 秒"
  QString reason;  ///< for people: both values, what may have caused it, or why it is unchecked
};

struct VerifyReport {
  /// Differs if an item does, else Close if one is, else Equal if one is; Unchecked when all are.
  VerifyOutcome outcome = VerifyOutcome::Equal;
  std::vector<VerifyItem> items;
};

/// The outcome of all of them together; Equal for none.
VerifyOutcome OutcomeOf(const std::vector<VerifyItem>& items);

QString OutcomeText(VerifyOutcome outcome);      ///< for people
const char* OutcomeWord(VerifyOutcome outcome);  ///< "equal", "close", "differs", "unchecked"

/// A line about what could not be checked.
VerifyItem UncheckedItem(const QString& key, const QString& name, const QString& reason);

}  // namespace tremlo

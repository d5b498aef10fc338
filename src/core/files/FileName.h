#pragma once

#include <QString>

namespace tremlo {

/// The text as the beginning of a file's name, which leaves room for an ending: without blanks around it,
/// letters that some system does not take in names replaced, names of devices marked, cut where it is too
/// long. Empty for blanks.
QString PlainFileName(const QString& text);

}  // namespace tremlo

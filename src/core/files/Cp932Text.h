#pragma once

#include <QString>

#include <string>
#include <string_view>

namespace tremlo {

/// Text in the Windows Japanese code page (CP932) to wide text, by the one table of this program: the same on
/// every system. A byte that has no meaning (80, A0, FD to FF, the first of a pair that has none or is cut)
/// becomes U+FFFD and reading goes on with the next byte.
QString DecodeCp932(std::string_view bytes);

/// Wide text to CP932. Of several codes of a character it is the one that Windows writes. Nine signs that
/// Windows would lose are written as the form that the page has: U+00A2, A3, A5, AC, 2014, 2016, 203E, 2212,
/// 301C. A character without a code, and half of a surrogate pair, becomes "?".
std::string EncodeCp932(const QString& text);

}  // namespace tremlo

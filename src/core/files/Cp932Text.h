#pragma once

#include <QString>

#include <string>
#include <string_view>

namespace tremlo {

/// Text in the Windows Japanese code page (CP932) to wide text. A byte that has no meaning there (80, A0, FD
/// to FF, half of a cut pair) becomes U+FFFD and reading goes on behind it.
QString DecodeCp932(std::string_view bytes);

/// Wide text to CP932. A character without a code, and half of a surrogate pair, becomes "?".
std::string EncodeCp932(const QString& text);

}  // namespace tremlo

#pragma once

#include <QString>

namespace tremlo {

/// What is wrong with a file or folder, in one line: its path with the separators of its system, and the
/// reason.
QString FileFault(const QString& path, const QString& reason);

}  // namespace tremlo

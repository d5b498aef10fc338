#include "core/files/FileFault.h"

#include <QDir>

namespace tremlo {

QString FileFault(const QString& path, const QString& reason) {
  return QDir::toNativeSeparators(path) + QStringLiteral(": ") + reason;
}

}  // namespace tremlo

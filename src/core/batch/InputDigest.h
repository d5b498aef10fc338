#pragma once

#include "core/batch/JobTable.h"
#include "core/files/WholeFile.h"

#include <QCryptographicHash>

namespace tremlo {

/// The SHA-256 by which a line is known again: over what goes in (version of the program, options, the seed's
/// file name, the contents of seed and target) and over the files that came out. A line whose digest is still
/// the same has nothing new to compute, and its files are those that it made.
class InputDigest {
 public:
  InputDigest(const QString& version, const BatchJob& job);

  /// Takes the content of an input. False when it cannot be read.
  bool AddInput(const QString& path);
  void AddOutput(std::string_view content);
  /// The same for the files as they stand on disk. False when one is not there.
  bool AddOutputs(const std::vector<QString>& paths);

  QString Hex() const;

 private:
  void Add(const char* kind, std::string_view bytes);

  QCryptographicHash m_hash{QCryptographicHash::Sha256};
};

}  // namespace tremlo

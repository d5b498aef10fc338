#pragma once

#include "core/project/MorvaneDoc.h"

#include <QByteArray>

#include <ostream>
#include <string>
#include <vector>

namespace tremlo::test {

/// All members of a document at one moment, the modified mark and the system tables included. Numbers are
/// compared by their bits, so that NaN equals itself and 0 differs from -0.
class DocumentState {
 public:
  explicit DocumentState(const CMorvaneDoc& doc);

  /// Names of the members in which the two differ; empty when the documents are the same bit for bit.
  std::vector<std::string> DifferencesTo(const DocumentState& other) const;

  bool operator==(const DocumentState&) const = default;

 private:
  struct Member {
    std::string name;
    QByteArray bytes;
    bool operator==(const Member&) const = default;
  };
  std::vector<Member> m_members;
};

}  // namespace tremlo::test

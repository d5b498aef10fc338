#pragma once

#include "core/records/ByteSource.h"

#include <memory>

namespace tremlo {

/// Unpacks gzip, several streams one behind the other included, and holds each against its checksum, which
/// libarchive passes over. What comes before a fault comes out; bytes behind the last stream are ignored.
class Gunzip : public ByteSource {
 public:
  explicit Gunzip(ByteSource& packed);
  ~Gunzip() override;

  qint64 Read(char* to, qint64 most) override;

 private:
  struct State;
  bool Refill();
  qint64 Fault(const QString& fault, qint64 written);

  ByteSource& m_packed;
  std::unique_ptr<State> m_state;
  QString m_fault;  ///< to be told once all that came before it is out
};

}  // namespace tremlo

#pragma once

#include <QString>

namespace tremlo {

/// Bytes that come one after the other.
class ByteSource {
 public:
  ByteSource() = default;
  ByteSource(const ByteSource&) = delete;
  ByteSource& operator=(const ByteSource&) = delete;
  virtual ~ByteSource() = default;

  /// Up to `most` bytes into `to`, and how many they are: 0 at the end, -1 with Error() set at a fault.
  virtual qint64 Read(char* to, qint64 most) = 0;
  const QString& Error() const { return m_error; }

 protected:
  qint64 Fail(const QString& error) {
    m_error = error;
    return -1;
  }

 private:
  QString m_error;
};

}  // namespace tremlo

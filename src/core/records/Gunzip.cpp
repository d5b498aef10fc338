#include "core/records/Gunzip.h"

#include <algorithm>
#include <vector>
#include <zlib.h>

namespace tremlo {

struct Gunzip::State {
  z_stream stream{};
  std::vector<Bytef> block = std::vector<Bytef>(65536);
  bool sound = false;
  bool inputEnds = false;
  bool between = false;  ///< behind a stream, before any other
};

Gunzip::Gunzip(ByteSource& packed) : m_packed(packed), m_state(std::make_unique<State>()) {
  constexpr int kGzipAlone = 16 + MAX_WBITS;
  m_state->sound = inflateInit2(&m_state->stream, kGzipAlone) == Z_OK;
}

Gunzip::~Gunzip() {
  inflateEnd(&m_state->stream);
}

/// More input, unless there is some; false at a fault.
bool Gunzip::Refill() {
  State& state = *m_state;
  if (state.stream.avail_in > 0 || state.inputEnds) return true;
  const qint64 count =
      m_packed.Read(reinterpret_cast<char*>(state.block.data()), static_cast<qint64>(state.block.size()));
  if (count < 0) return false;
  state.inputEnds = count == 0;
  state.stream.next_in = state.block.data();
  state.stream.avail_in = static_cast<uInt>(count);
  return true;
}

qint64 Gunzip::Fault(const QString& fault, qint64 written) {
  m_fault = fault;
  return written > 0 ? written : Fail(fault);
}

qint64 Gunzip::Read(char* to, qint64 most) {
  if (!m_fault.isEmpty()) return Fail(m_fault);
  State& state = *m_state;
  if (!state.sound) return Fail(QStringLiteral("gzip を読む用意ができません"));
  z_stream& stream = state.stream;
  const auto room = static_cast<uInt>(std::min<qint64>(most, 1 << 30));
  stream.next_out = reinterpret_cast<Bytef*>(to);
  stream.avail_out = room;
  for (;;) {
    const auto written = static_cast<qint64>(room - stream.avail_out);
    if (!Refill()) return Fault(m_packed.Error(), written);
    if (state.between) {
      constexpr Bytef kFirstByte = 0x1F;
      if (stream.avail_in == 0 || *stream.next_in != kFirstByte) return written;
      inflateReset(&stream);
      state.between = false;
    }
    const int status = inflate(&stream, Z_NO_FLUSH);
    const auto now = static_cast<qint64>(room - stream.avail_out);
    if (status == Z_STREAM_END) {
      state.between = true;
    } else if (status != Z_OK && status != Z_BUF_ERROR) {
      return Fault(QStringLiteral("gzip：%1").arg(QString::fromLatin1(stream.msg ? stream.msg : "error")),
                   now);
    } else if (stream.avail_in == 0 && state.inputEnds && stream.avail_out > 0) {
      return Fault(QStringLiteral("gzip が途中で切れています"), now);
    }
    if (stream.avail_out == 0) return now;
  }
}

}  // namespace tremlo

#pragma once

#include "core/location/TileCache.h"

#include <QBuffer>
#include <QImage>
#include <QRegularExpression>
#include <QStringList>

#include <condition_variable>
#include <mutex>

namespace tremlo::test {

/// The colour that a TileServer gives a tile all over.
inline QColor ColorOfTile(const TileNumber& tile) {
  return {50 + tile.x * 13 % 200, 50 + tile.y * 29 % 200, 50 + tile.zoom * 11 % 200};
}

inline QByteArray TilePng(const QColor& color) {
  QImage image(256, 256, QImage::Format_RGB32);
  image.fill(color);
  QByteArray bytes;
  QBuffer buffer(&bytes);
  image.save(&buffer, "PNG");
  return bytes;
}

/// A tile service behind a cache's download function, asked on the map's worker and led by the test.
class TileServer {
 public:
  TileDownload Download() {
    return [this](const QString& url, QByteArray& content, const std::stop_token& stop) {
      return Answer(url, content, stop);
    };
  }

  void SetOutcome(TileOutcome outcome) {
    const std::lock_guard lock(m_mutex);
    m_outcome = outcome;
  }
  /// What is sent in place of pictures; empty for these.
  void SetContent(const QByteArray& content) {
    const std::lock_guard lock(m_mutex);
    m_content = content;
  }
  /// While it is dead no request is answered.
  void SetDead(bool dead) {
    const std::lock_guard lock(m_mutex);
    m_dead = dead;
    m_changed.notify_all();
  }
  QStringList Asked() const {
    const std::lock_guard lock(m_mutex);
    return m_asked;
  }
  int BrokenOff() const {
    const std::lock_guard lock(m_mutex);
    return m_brokenOff;
  }

 private:
  TileOutcome Answer(const QString& url, QByteArray& content, const std::stop_token& stop) {
    std::unique_lock lock(m_mutex);
    m_asked << url;
    m_changed.wait(lock, stop, [this] { return !m_dead; });
    if (stop.stop_requested()) {
      ++m_brokenOff;
      return TileOutcome::BrokenOff;
    }
    const QStringList numbers = QString(url).remove(QStringLiteral(".png")).split(u'/');
    const TileNumber tile{numbers[numbers.size() - 3].toInt(), numbers[numbers.size() - 2].toInt(),
                          numbers.back().toInt()};
    content = m_content.isEmpty() ? TilePng(ColorOfTile(tile)) : m_content;
    return m_outcome;
  }

  mutable std::mutex m_mutex;
  std::condition_variable_any m_changed;
  TileOutcome m_outcome = TileOutcome::Done;
  QByteArray m_content;
  QStringList m_asked;
  int m_brokenOff = 0;
  bool m_dead = false;
};

}  // namespace tremlo::test

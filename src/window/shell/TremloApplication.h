#pragma once

#include <QApplication>

#include <atomic>

namespace tremlo {

/// The application object. No exception leaves an event handler: memory that runs short while a key, a timer
/// or a paste is served is told in a box, and the program goes on.
class TremloApplication : public QApplication {
 public:
  using QApplication::QApplication;

  bool notify(QObject* receiver, QEvent* event) override;

 private:
  void TellSoon(const QString& failure);

  std::atomic_bool m_telling = false;  ///< one box, however often the same handler fails meanwhile
};

}  // namespace tremlo

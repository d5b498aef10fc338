#pragma once

#include "window/shell/LockKeys.h"

#include <QTimer>
#include <QWidget>

#include <functional>

class QLabel;

namespace tremlo {

/// The panes "CAP", "NUM" and "SCRL" of the status bar: each shows its letters while its key is on, and
/// nothing where the window system does not tell.
class LockKeyPanes : public QWidget {
  Q_OBJECT
 public:
  explicit LockKeyPanes(std::function<std::optional<LockKeys>()> ask = LockKeysNow,
                        QWidget* parent = nullptr);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QLabel* AddPane(const char* name, const QString& letters, const QString& key);
  void ShowState();

  std::function<std::optional<LockKeys>()> m_ask;
  QTimer m_soon;  ///< one question for the many events that one key makes
  QLabel* m_caps;
  QLabel* m_num;
  QLabel* m_scroll;
};

}  // namespace tremlo

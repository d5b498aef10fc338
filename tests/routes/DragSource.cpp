// Another program's window, from which a file can be dragged: the tests' hand for drops. Its title tells how
// far the drag is: "drag source", "dragging", "accepted" while the place below the pointer would take the
// file, at last "dropped" or "refused", once the other program has fetched the file's name: until then it
// must not end.

#include <QApplication>
#include <QDrag>
#include <QMimeData>
#include <QMouseEvent>
#include <QPointer>
#include <QUrl>
#include <QWidget>

namespace {

class DragSource : public QWidget {
 public:
  explicit DragSource(const QString& file) : m_file(file) {
    setWindowTitle(QStringLiteral("drag source"));
    setAccessibleName(windowTitle());
    setFixedSize(120, 60);
    move(0, 0);
  }

 protected:
  void mouseMoveEvent(QMouseEvent* /*event*/) override {
    setWindowTitle(QStringLiteral("dragging"));
    auto* const data = new QMimeData;
    data->setUrls({QUrl::fromLocalFile(m_file)});
    auto* const drag = new QDrag(this);
    drag->setMimeData(data);
    connect(drag, &QDrag::actionChanged, this, [this](Qt::DropAction action) {
      setWindowTitle(action == Qt::CopyAction ? QStringLiteral("accepted") : QStringLiteral("dragging"));
    });
    const QPointer<QDrag> open = drag;
    const bool dropped = drag->exec(Qt::CopyAction) == Qt::CopyAction;
    const auto tellEnd = [this, dropped] {
      setWindowTitle(dropped ? QStringLiteral("dropped") : QStringLiteral("refused"));
    };
    // The drag lives until the receiver has said that it is done.
    if (open)
      connect(open, &QObject::destroyed, this, tellEnd);
    else
      tellEnd();
  }

 private:
  QString m_file;
};

}  // namespace

int main(int argc, char* argv[]) {
  const QApplication application(argc, argv);
  DragSource source(QCoreApplication::arguments().value(1));
  source.show();
  return QCoreApplication::exec();
}

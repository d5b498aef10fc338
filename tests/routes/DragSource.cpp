// Another program's window, from which a file can be dragged: the tests' hand for drops.

#include <QApplication>
#include <QDrag>
#include <QMimeData>
#include <QMouseEvent>
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
    auto* const data = new QMimeData;
    data->setUrls({QUrl::fromLocalFile(m_file)});
    auto* const drag = new QDrag(this);
    drag->setMimeData(data);
    drag->exec(Qt::CopyAction);
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

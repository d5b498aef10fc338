// The application object of the program, which the other tests do without.

#include "support/TestHome.h"
#include "window/shell/ShellParts.h"
#include "window/shell/TremloApplication.h"

#include <QLabel>
#include <QTest>

#include <gmock/gmock.h>
#include <new>
#include <stdexcept>

namespace tremlo::test {
namespace {

/// Fails in its handlers.
class Failing : public QWidget {
 public:
  int paints = 0;

 protected:
  void keyPressEvent(QKeyEvent*) override { throw std::bad_alloc(); }
  void mousePressEvent(QMouseEvent*) override { throw std::logic_error("?"); }
  void paintEvent(QPaintEvent*) override {
    ++paints;
    throw std::bad_alloc();
  }
};

QStringList Boxes(const std::function<void()>& act) {
  QStringList texts;
  WhenModal(QStringLiteral("prompt"), [&](QWidget* box) {
    texts << box->findChild<QLabel*>(QStringLiteral("qt_msgbox_label"))->text();
    QTest::keyClick(box, Qt::Key_Return);
  });
  act();
  EXPECT_TRUE(QTest::qWaitFor([&] { return !texts.isEmpty() && !QApplication::activeModalWidget(); }));
  return texts;
}

TEST(Application, AnExceptionOfAHandlerIsToldOnceAndTheProgramGoesOn) {
  QWidget widget;
  Failing failing;
  const QString memory = QStringLiteral("メモリが不足しているため、処理を中止しました。");
  EXPECT_THAT(Boxes([&] {
                QTest::keyClick(&failing, Qt::Key_A);
                QTest::keyClick(&failing, Qt::Key_B);
              }),
              testing::ElementsAre(memory));
  EXPECT_THAT(Boxes([&] { QTest::mouseClick(&failing, Qt::LeftButton); }),
              testing::ElementsAre(QStringLiteral("予期せぬエラーが発生したため、処理を中止しました。")));
  EXPECT_THAT(Boxes([&] {
                QMetaObject::invokeMethod(
                    &widget, [] { throw std::bad_alloc(); }, Qt::QueuedConnection);
              }),
              testing::ElementsAre(memory));
}

TEST(Application, APictureThatFailsOpensNoBox) {
  Failing failing;
  failing.show();
  EXPECT_TRUE(QTest::qWaitFor([&] { return failing.paints > 0; }));
  QCoreApplication::processEvents();
  QCoreApplication::processEvents();
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

}  // namespace
}  // namespace tremlo::test

int main(int argc, char* argv[]) {
  const tremlo::test::TestHome home;
  if (!home.IsValid()) return EXIT_FAILURE;
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  const tremlo::TremloApplication application(argc, argv);
  testing::InitGoogleMock(&argc, argv);
  return RUN_ALL_TESTS();
}

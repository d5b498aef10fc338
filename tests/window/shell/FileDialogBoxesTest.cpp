#include "window/shell/FileDialogBoxes.h"
#include "window/shell/ShellParts.h"

#include <QComboBox>
#include <QFileDialog>
#include <QListView>
#include <QMainWindow>
#include <QStandardPaths>
#include <QTest>

#include <gmock/gmock.h>

namespace tremlo {
namespace {

using test::WhenModal;

class FileDialogBoxesTest : public testing::Test {
 protected:
  static void WhenShown(std::function<void(QFileDialog*)> act) {
    WhenModal(QStringLiteral("fileDialog"),
              [act = std::move(act)](QWidget* window) { act(qobject_cast<QFileDialog*>(window)); });
  }
  /// Types a name and presses Enter.
  static void Type(QFileDialog* dialog, const QString& name) {
    auto* edit = dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    ASSERT_NE(edit, nullptr);
    edit->setText(name);
    QTest::keyClick(edit, Qt::Key_Return);
  }

  test::TestFolder folder;
  CMorvaneDoc doc{QString()};
  FileDialogBoxes boxes{doc};
  const FileQuestion question{.title = QStringLiteral("開く"),
                              .nameFilters = QStringLiteral("Tremlo files (*.trml);;All Files (*.*)"),
                              .suffix = QStringLiteral("trml"),
                              .proposedName = QStringLiteral("無題.trml")};
};

TEST_F(FileDialogBoxesTest, SaveAddsTheExtension) {
  doc.SetPathName(folder.Path(QStringLiteral("a.trml")));
  WhenShown([](QFileDialog* dialog) { Type(dialog, QStringLiteral("新 b")); });
  EXPECT_EQ(boxes.AskSavePath(question), folder.Path(QStringLiteral("新 b.trml")));
}

TEST_F(FileDialogBoxesTest, APointWithinANameBeginsNoExtension) {
  doc.SetPathName(folder.Path(QStringLiteral("a.trml")));
  const auto saved = [&](const char* typed) {
    WhenShown([typed](QFileDialog* dialog) { Type(dialog, QString::fromUtf8(typed)); });
    return QFileInfo(boxes.AskSavePath(question)).fileName();
  };
  EXPECT_EQ(saved("El Centro 0.02s"), u"El Centro 0.02s.trml");
  EXPECT_EQ(saved("No.1 ダム"), QStringLiteral("No.1 ダム.trml"));
  EXPECT_EQ(saved("A.B. dam"), u"A.B. dam.trml");
  EXPECT_EQ(saved("計画.最終"), QStringLiteral("計画.最終.trml"));
  EXPECT_EQ(saved("b.TRML"), u"b.TRML");
  EXPECT_EQ(saved("c.bak"), u"c.bak");
}

TEST_F(FileDialogBoxesTest, TheFileWithTheAddedExtensionIsTheOneThatIsNotOverwritten) {
  doc.SetPathName(folder.Path(QStringLiteral("a.trml")));
  folder.Write(QStringLiteral("d 0.5.trml"), "x");
  bool asked = false;
  WhenShown([&](QFileDialog* dialog) {
    WhenModal(QString(), [&asked](QWidget* box) {
      asked = true;
      QTest::keyClick(box, Qt::Key_Escape);
    });
    Type(dialog, QStringLiteral("d 0.5"));
    dialog->reject();
  });
  EXPECT_EQ(boxes.AskSavePath(question), QString());
  EXPECT_TRUE(asked);
}

TEST_F(FileDialogBoxesTest, TheKindOfFileThatIsChosenGivesTheEnding) {
  doc.SetPathName(folder.Path(QStringLiteral("a.trml")));
  const FileQuestion picture{
      .title = QStringLiteral("保存"),
      .nameFilters = QStringLiteral("PNG画像 (*.png);;SVG画像 (*.svg);;PDF文書 (*.pdf)"),
      .suffix = QStringLiteral("png"),
      .proposedName = QStringLiteral("図.png")};
  const auto saved = [&](int kind, const char* typed) {
    WhenShown([kind, typed](QFileDialog* dialog) {
      auto* const kinds = dialog->findChild<QComboBox*>(QStringLiteral("fileTypeCombo"));
      ASSERT_NE(kinds, nullptr);
      kinds->setFocus();
      for (int i = 0; i < kind; ++i) QTest::keyClick(kinds, Qt::Key_Down);
      auto* const edit = dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
      Type(dialog, typed ? QString::fromUtf8(typed) : edit->text());
    });
    return QFileInfo(boxes.AskSavePath(picture)).fileName();
  };
  EXPECT_EQ(saved(0, nullptr), QStringLiteral("図.png"));
  EXPECT_EQ(saved(1, nullptr), QStringLiteral("図.svg"));
  EXPECT_EQ(saved(2, nullptr), QStringLiteral("図.pdf"));
  EXPECT_EQ(saved(1, "新"), QStringLiteral("新.svg"));
  EXPECT_EQ(saved(2, "h 0.05"), QStringLiteral("h 0.05.pdf"));
  EXPECT_EQ(saved(2, "b.svg"), QStringLiteral("b.svg")) << "an ending that is typed stays";
}

TEST_F(FileDialogBoxesTest, SaveProposesItsNameInTheProjectsFolder) {
  doc.SetPathName(folder.Path(QStringLiteral("a.trml")));
  WhenShown([&](QFileDialog* dialog) {
    EXPECT_EQ(dialog->directory().path(), folder.Path());
    EXPECT_EQ(dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->text(),
              QStringLiteral("無題.trml"));
    EXPECT_THAT(dialog->nameFilters(), testing::ElementsAre("Tremlo files (*.trml)", "All Files (*.*)"));
    dialog->reject();
  });
  EXPECT_EQ(boxes.AskSavePath(question), QString());
}

TEST_F(FileDialogBoxesTest, DialogBelongsToTheMainWindowWhileAnotherProgramIsInFront) {
  QMainWindow frame;
  frame.show();
  const auto expectParent = [&] {
    QApplication::setActiveWindow(nullptr);
    WhenShown([&](QFileDialog* dialog) {
      EXPECT_EQ(dialog->parentWidget(), &frame);
      dialog->reject();
    });
  };
  expectParent();
  EXPECT_EQ(boxes.AskOpenPath(question), QString());
  expectParent();
  EXPECT_EQ(boxes.AskSavePath(question), QString());
}

TEST_F(FileDialogBoxesTest, OpenTakesAFileThatExists) {
  doc.SetPathName(folder.Path(QStringLiteral("a.trml")));
  const QString path = folder.Write(QStringLiteral("c.trml"), "x");
  WhenShown([](QFileDialog* dialog) { Type(dialog, QStringLiteral("c.trml")); });
  EXPECT_EQ(boxes.AskOpenPath(question), path);
}

TEST_F(FileDialogBoxesTest, AllFilesAreThoseWithoutAPointToo) {
  doc.SetPathName(folder.Path(QStringLiteral("a.trml")));
  folder.Write(QStringLiteral("a.trml"), "x");
  folder.Write(QStringLiteral("plain"), "x");
  WhenShown([](QFileDialog* dialog) {
    auto* kinds = dialog->findChild<QComboBox*>(QStringLiteral("fileTypeCombo"));
    const auto* list = dialog->findChild<QListView*>(QStringLiteral("listView"));
    ASSERT_TRUE(kinds && list);
    const auto names = [list] {
      QStringList shown;
      for (int row = 0; row < list->model()->rowCount(list->rootIndex()); ++row)
        shown << list->model()->index(row, 0, list->rootIndex()).data().toString();
      return shown;
    };
    EXPECT_TRUE(QTest::qWaitFor([&] { return names() == QStringList{QStringLiteral("a.trml")}; }));
    kinds->setFocus();
    QTest::keyClick(kinds, Qt::Key_Down);
    EXPECT_EQ(kinds->currentText(), u"All Files (*.*)");
    EXPECT_TRUE(QTest::qWaitFor([&] { return names().contains(QStringLiteral("plain")); }));
    QTest::keyClick(kinds, Qt::Key_Up);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !names().contains(QStringLiteral("plain")); }));
    dialog->reject();
  });
  boxes.AskOpenPath(question);
}

TEST_F(FileDialogBoxesTest, TheFilterOfTheChosenFileIsTold) {
  doc.SetPathName(folder.Path(QStringLiteral("a.trml")));
  const QString path = folder.Write(QStringLiteral("c.trml"), "x");
  FileQuestion three = question;
  three.nameFilters += QStringLiteral(";;Text (*.*)");
  const auto choose = [&](int downs) {
    WhenShown([downs](QFileDialog* dialog) {
      auto* kinds = dialog->findChild<QComboBox*>(QStringLiteral("fileTypeCombo"));
      kinds->setFocus();
      for (int i = 0; i < downs; ++i) QTest::keyClick(kinds, Qt::Key_Down);
      Type(dialog, QStringLiteral("c.trml"));
    });
    const FileChoice choice = boxes.AskOpenFile(three);
    EXPECT_EQ(choice.path, path);
    return choice.filter;
  };
  for (int filter = 0; filter < 3; ++filter) EXPECT_EQ(choose(filter), filter);
}

TEST_F(FileDialogBoxesTest, UnnamedProjectStartsInTheLastFolderOfTheRun) {
  const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
  WhenShown([](QFileDialog* dialog) {
    EXPECT_EQ(dialog->directory().path(), QDir::homePath()) << "a login without a folder for documents";
    dialog->reject();
  });
  boxes.AskOpenPath(question);
  ASSERT_TRUE(QDir().mkpath(documents));
  WhenShown([&](QFileDialog* dialog) {
    EXPECT_EQ(dialog->directory().path(), documents);
    dialog->reject();
  });
  boxes.AskOpenPath(question);
  EXPECT_TRUE(QDir().rmdir(documents));
  const QString path = folder.Write(QStringLiteral("c.trml"), "x");
  WhenShown([&](QFileDialog* dialog) { Type(dialog, path); });
  boxes.AskOpenPath(question);
  WhenShown([&](QFileDialog* dialog) {
    EXPECT_EQ(dialog->directory().path(), folder.Path());
    dialog->reject();
  });
  boxes.AskOpenPath(question);
}

TEST_F(FileDialogBoxesTest, ExistingFileIsOverwrittenOnYesAlone) {
  doc.SetPathName(folder.Path(QStringLiteral("a.trml")));
  folder.Write(QStringLiteral("d.trml"), "x");
  WhenShown([&](QFileDialog* dialog) {
    bool asked = false;
    WhenModal(QString(), [&asked](QWidget* box) {
      asked = true;
      QTest::keyClick(box, Qt::Key_Escape);
    });
    Type(dialog, QStringLiteral("d"));
    EXPECT_TRUE(asked);
    EXPECT_TRUE(dialog->isVisible());
    dialog->reject();
  });
  EXPECT_EQ(boxes.AskSavePath(question), QString());
}

}  // namespace
}  // namespace tremlo

#include "window/sources/SourceScreenTest.h"

#include "window/sources/OneScreenHost.h"

#include <QAccessible>

namespace tremlo::test {

/// Computes as the program does.
class SourceScreenTest::Host : public OneScreenHost {
 public:
  Host(SourceScreenTest& test, ScreenId id) : OneScreenHost(test.doc, test.log, id), m_test(test) {}

  bool CalculateFaultSpectra() override { return m_test.table.runs.calculateFaultSpectra(*m_test.parts); }

 private:
  SourceScreenTest& m_test;
};

SourceScreenTest::SourceScreenTest(ScreenId id) : m_id(id) {
  InstallJapaneseFonts();
  CopyTables(folder);
  EXPECT_EQ(doc.ResetDocument(), std::nullopt);
  doc.guidelineRoute = doc.flowFixed = doc.flowFaultSource = true;
  host = std::make_unique<Host>(*this, id);
  procedure = std::make_unique<WorkProcedure>(doc, prompt, *host, pane);
  rules = std::make_unique<ChangeRules>(doc, prompt, *procedure);
  gate = std::make_unique<CommandGate>(prompt);
  parts.reset(new ScreenParts{doc,
                              prompt,
                              files,
                              *procedure,
                              *rules,
                              online,
                              services,
                              *gate,
                              [this](SwitchOutcome outcome) { followed.push_back(outcome); },
                              {},
                              [this] { return table.runs.calculateFaultSpectra(*parts); }});
}

SourceScreenTest::~SourceScreenTest() {
  driver.reset();
  delete screen;
}

void SourceScreenTest::Open(QSize window) {
  host->screen = screen = table.screens.at(m_id)(*parts);
  driver = std::make_unique<ScreenDriver>(*screen, window);
  EXPECT_EQ(procedure->SwitchScreen(m_id), SwitchOutcome::Open);
  Settle();
  log.clear();
  doc.SetModified(false);
}

void SourceScreenTest::ExpectDeclined(const std::function<void()>& act) {
  ExpectQuestion(PromptAnswer::No);
  ExpectUnchanged(act);
  prompt.CheckUsedUp();
}

void SourceScreenTest::ExpectUnchanged(const std::function<void()>& act) {
  const DocumentState before(doc);
  act();
  EXPECT_THAT(before.DifferencesTo(DocumentState(doc)), testing::IsEmpty());
}

void SourceScreenTest::ToggleByReader(const char* grid, int row, int column) {
  QAccessibleInterface* const heard = QAccessible::queryAccessibleInterface(&driver->Grid(grid));
  ASSERT_TRUE(heard && heard->tableInterface());
  QAccessibleInterface* const cell = heard->tableInterface()->cellAt(row - 1, column - 1);
  ASSERT_TRUE(cell && cell->actionInterface());
  cell->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
  Settle();
}

QString SourceScreenTest::GraphDescription() {
  driver->Picture();
  auto& graph = driver->Find<QWidget>("graph");
  QAccessibleInterface* const heard = QAccessible::queryAccessibleInterface(&graph);
  return heard ? heard->text(QAccessible::Description) : QString();
}

std::vector<std::string> SourceScreenTest::ColumnTexts(const char* grid, int column) {
  std::vector<std::string> texts;
  for (int row = 1; row <= driver->Grid(grid).RowCount(); ++row)
    texts.push_back(driver->Cell(grid, row, column));
  return texts;
}

std::vector<std::string> SourceScreenTest::TabOrder(const char* first, int count) {
  std::vector<std::string> names;
  driver->Find<QWidget>(first).setFocus();
  for (int i = 0; i < count; ++i) {
    const QWidget* const reached = QApplication::focusWidget();
    names.push_back(reached->objectName().toStdString());
    EXPECT_FALSE(reached->accessibleName().isEmpty()) << names.back();
    driver->Key(Qt::Key_Tab);
  }
  return names;
}

void SourceScreenTest::KeepPicture(const char* name) {
  const QString folderOfPictures = qEnvironmentVariable("TREMLO_PICTURES");
  const QImage picture = driver->Picture();
  EXPECT_FALSE(picture.isNull());
  if (!folderOfPictures.isEmpty())
    picture.save(folderOfPictures + u'/' + QLatin1String(name) + QStringLiteral(".png"));
}

}  // namespace tremlo::test

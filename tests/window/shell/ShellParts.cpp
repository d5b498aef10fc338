#include "window/shell/ShellParts.h"

#include "core/project/ProjectFile.h"

#include <QApplication>
#include <QTest>
#include <QTimer>
#include <QVBoxLayout>

namespace tremlo::test {

LoggingScreen::LoggingScreen(ScreenId id, QStringList& log)
    : first(new QLineEdit(this)), m_id(id), m_log(log) {
  auto* column = new QVBoxLayout(this);
  column->addWidget(first);
  column->addWidget(new QLineEdit(this));
}

void LoggingScreen::Log(const char* what) {
  m_log.append(QStringLiteral("%1 %2").arg(QString::fromLatin1(what)).arg(static_cast<int>(m_id)));
}

ScreenTable LoggingScreens(QStringList& log) {
  ScreenTable table;
  for (int number = static_cast<int>(kFirstScreen); number <= static_cast<int>(kLastScreen); ++number) {
    const auto id = static_cast<ScreenId>(number);
    table.screens[id] = [id, &log](const ScreenParts&) -> Screen* {
      log.append(QStringLiteral("make %1").arg(static_cast<int>(id)));
      return new LoggingScreen(id, log);
    };
  }
  table.runs.computeMissingSpectra = [&log](const ScreenParts& parts) {
    log.append(QStringLiteral("spectra"));
    for (std::size_t i = 0; i < parts.doc.seedWaves.Count(); ++i)
      parts.doc.seedWaves.At(i).spectrumValid = true;
    return true;
  };
  table.runs.calculateFaultSpectra = [](const ScreenParts&) { return true; };
  table.runs.runRespAdjustment = [&log](const ScreenParts&) {
    log.append(QStringLiteral("adjust"));
    AdjustResult result;
    result.converged = true;
    return result;
  };
  table.editApiParameters = [&log](const ScreenParts&) { log.append(QStringLiteral("API dialog")); };
  table.editAdjustSettings = [&log](const ScreenParts&) { log.append(QStringLiteral("adjust dialog")); };
  table.writeReport = [&log](const ScreenParts&) { log.append(QStringLiteral("report")); };
  return table;
}

ScriptedFiles::~ScriptedFiles() {
  for (const auto& [kind, path] : m_script) ADD_FAILURE() << "No dialog came for " << path.toStdString();
}

QString ScriptedFiles::Next(const char* kind, const FileQuestion& question) {
  last = question;
  if (m_script.empty() || m_script.front().first != QLatin1String(kind)) {
    ADD_FAILURE() << "An unexpected file dialog: " << kind;
    return {};
  }
  const QString path = m_script.front().second;
  m_script.pop_front();
  return path;
}

void WhenModal(const QString& name, std::function<void(QWidget*)> act) {
  auto* timer = new QTimer(qApp);
  QObject::connect(timer, &QTimer::timeout, timer, [timer, name, act = std::move(act)] {
    QWidget* window = QApplication::activeModalWidget();
    if (!window || window->objectName() != name) return;
    timer->stop();
    timer->deleteLater();
    act(window);
  });
  timer->start(1);
}

ShellTest::ShellTest() {
  CopyTables(folder);
  settings.folders = folder.Path();
  settings.splashMs = 0;
  settings.services.hazardAddress = settings.services.tileAddress = QStringLiteral("http://127.0.0.1:9");
  settings.services.hazard.connectAttempts = 1;
  settings.services.probePauseMs = 0;
  RecentFiles recent;
  for (const QString& path : recent.Paths()) recent.Remove(path);
}

ShellTest::~ShellTest() = default;

ProgramDoors ShellTest::DoorsWith(std::function<TopChoice(QWidget*)> askRoute) {
  ProgramDoors doors;
  doors.prompt = &prompt;
  doors.files = &files;
  doors.askRoute = std::move(askRoute);
  doors.endProgram = [this](int status) { ended.push_back(status); };
  return doors;
}

void ShellTest::Make() {
  const ProgramDoors doors = DoorsWith([this](QWidget*) {
    log.append(QStringLiteral("top"));
    if (choices.empty()) {
      ADD_FAILURE() << "An unexpected top screen";
      return TopChoice::Cancelled;
    }
    const TopChoice choice = choices.front();
    choices.pop_front();
    return choice;
  });
  ScreenTable screens = LoggingScreens(log);
  screens.runs.calculateFaultSpectra = [this](const ScreenParts&) { return faultSpectraWork; };
  app = std::make_unique<CMorvaneApp>(settings, std::move(screens), doors);
}

void ShellTest::MakeWithOwnScreens(std::function<TopChoice()> askRoute) {
  const ProgramDoors doors = DoorsWith([askRoute = std::move(askRoute)](QWidget*) { return askRoute(); });
  app = std::make_unique<CMorvaneApp>(settings, ProgramScreens(), doors);
}

void ShellTest::ExpectOffline() {
  prompt.ExpectMessage(QStringLiteral("国土地理院 OffLine"));
  prompt.ExpectMessage(QStringLiteral("J-SHIS OffLine"));
}

std::optional<int> ShellTest::Start(const QStringList& paths) {
  return app->Start(QStringList{QStringLiteral("tremlo")} + paths);
}

void ShellTest::StartNew(TopChoice choice) {
  if (!app) Make();
  ExpectOffline();
  choices.push_back(choice);
  ASSERT_EQ(Start(), std::nullopt);
  log.clear();
}

QString ShellTest::SavedProject(const QString& name, bool guidelineRoute) {
  CMorvaneDoc doc(folder.Path());
  EXPECT_EQ(doc.ResetDocument(), std::nullopt);
  doc.guidelineRoute = guidelineRoute;
  if (!guidelineRoute) doc.seedWaves.Add(QStringLiteral("地震波形"));
  EXPECT_TRUE(SaveProject(doc, folder.Path(name)));
  return folder.Path(name);
}

void ShellTest::Press(FlowStep step) {
  QTest::mouseClick(app->Frame()->Pane()->StepsOf(step)->Button(step), Qt::LeftButton);
}

QStringList ShellTest::RecentTexts() {
  QStringList texts;
  for (const QAction* entry : Menu()->RecentEntries()) texts << entry->text();
  return texts;
}

}  // namespace tremlo::test

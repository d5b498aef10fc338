#include "window/shell/MorvaneApp.h"

#include "core/report/ReportWave.h"
#include "core/shell/ManualPages.h"
#include "core/shell/TitleText.h"
#include "core/shell/UpdateCheck.h"
#include "window/graphs/DarkPaletteStyle.h"
#include "window/graphs/JapaneseFont.h"
#include "window/graphs/ModalWindow.h"
#include "window/graphs/WaitCursor.h"
#include "window/shell/AboutDlg.h"
#include "window/shell/DlgSplash.h"
#include "window/shell/DlgTop.h"
#include "window/shell/Pictures.h"
#include "window/shell/ScrollAreaAccess.h"

#include <QAbstractEventDispatcher>
#include <QAction>
#include <QApplication>
#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QIcon>
#include <QLibraryInfo>
#include <QSettings>
#include <QShortcut>
#include <QStatusBar>
#include <QTemporaryDir>
#include <QUrl>

#include <array>

namespace tremlo {

namespace {

const QString kTopNotShown = QStringLiteral("トップ画面を表示させることができませんでした。");

/// Qt's dialogs would keep the user's folders, sizes and colours in a file of their own, and take over those
/// of other programs. Below a file there is no place for another.
void MakeDialogsForget() {
  QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, QCoreApplication::applicationFilePath());
}

constexpr qint64 kLargestManualTable = 1 << 20;  // bytes

QString ManualFile(const ProgramFolders& folders, const char* name) {
  return QDir(folders.TableFolder(QStringLiteral("SystemData"))).filePath(QLatin1String(name));
}

/// In the order in which the screens are made.
constexpr std::array kScreenOrder = {
    ScreenId::Field,
    ScreenId::FlowCheck,
    ScreenId::Flowchart1,
    ScreenId::Flowchart2,
    ScreenId::OrigSeismicWave,
    ScreenId::DamsiteWave,
    ScreenId::MakeSeismicWave1,
    ScreenId::MakeSeismicWave2,
    ScreenId::LowerSpectrum,
    ScreenId::BaseSpectrum,
    ScreenId::AdjustSeismicWave,
    ScreenId::Visualization,
    ScreenId::Flowchart3,
    ScreenId::RespOrigSeismicWave,
    ScreenId::RespAdjustSpectrum,
    ScreenId::RespVisualization,
};

}  // namespace

CMorvaneApp::CMorvaneApp(ProgramSettings settings, ScreenTable screens, ProgramDoors doors)
    : m_settings(std::move(settings)),
      m_table(std::move(screens)),
      m_doors(std::move(doors)),
      m_prompt(m_doors.prompt ? *m_doors.prompt : m_boxes),
      m_gate(m_prompt),
      m_doc(m_settings.folders),
      m_fileBoxes(m_doc),
      m_files(m_doors.files ? *m_doors.files : m_fileBoxes) {
  m_settings.services.answerFolder = m_settings.folders.Own();
  if (!m_doors.askRoute) m_doors.askRoute = CDlgTop::Ask;
  if (!m_doors.endProgram) m_doors.endProgram = [](int status) { QCoreApplication::exit(status); };
  MakeDialogsForget();
  InstallScrollAreaAccess();
  InstallJapaneseFonts();
  QApplication::setStyle(new DarkPaletteStyle);
  LoadPictures();
  QApplication::setWindowIcon(QIcon(QStringLiteral(":/shell/tremlo.svg")));
  // The program ends when its window has closed, not when the splash has.
  QApplication::setQuitOnLastWindowClosed(false);
  if (m_qtTexts.load(QStringLiteral("qtbase_ja"), QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
    QCoreApplication::installTranslator(&m_qtTexts);
}

CMorvaneApp::~CMorvaneApp() = default;

std::optional<int> CMorvaneApp::Start(const QStringList& arguments) {
  if (!ReadyToStart()) return m_ended.value_or(0);
  const bool fileGiven = arguments.size() > 1;
  std::optional<TopChoice> choice;
  if (!fileGiven) {
    choice = AskRoute();
    if (choice == TopChoice::NotShown) m_prompt.Tell(kTopNotShown);
    if (choice == TopChoice::NotShown || choice == TopChoice::Cancelled) return 0;
  }
  MakeFrame();
  const bool ready = fileGiven ? m_projects->StartWithFile(arguments[1]) : m_projects->StartNew();
  if (!ready) return m_ended.value_or(0);
  RebuildTitle();
  if (choice) m_doc.guidelineRoute = choice == TopChoice::GuidelineRoute;
  MakeScreens();
  Follow(m_procedure->ShowProject());
  if (m_ended) return m_ended;
  ProjectChanged();
  m_frame->ShowCentred();
  return std::nullopt;
}

bool CMorvaneApp::ReadyToStart() {
  if (!m_instance.Take()) {
    m_prompt.Tell(QStringLiteral("既に起動されています。"), PromptIcon::Stop);
    return false;
  }
  CDlgSplash(m_settings.splashMs).exec();
  StartUpdateCheck(false);
  if (m_settings.folders.Own().isEmpty()) {
    // The probes come first, and have no other place for their answers.
    const QTemporaryDir folder;
    ServiceSettings services = m_settings.services;
    services.answerFolder = folder.path();
    Probe(services);
    m_prompt.Tell(QStringLiteral("EXEファイルのパスを取得できませんでした。"), PromptIcon::Stop);
    return false;
  }
  // In the system's layout the user's folder does not come with the program. Without it the probe fails, as
  // in one that cannot be written.
  QDir().mkpath(m_settings.folders.Own());
  Probe(m_settings.services);
  const std::optional<TableFailure> failure = CheckTableFolders(m_settings.folders);
  if (!failure) return true;
  m_prompt.Tell(failure->text, PromptIcon::None);
  EndProgram(failure->exitStatus);
  return false;
}

void CMorvaneApp::MakeFrame() {
  m_frame = std::make_unique<CMainFrame>();
  m_procedure.emplace(m_doc, m_prompt, *m_frame, *m_frame->Pane());
  m_rules.emplace(m_doc, m_prompt, *m_procedure);
  m_projects.emplace(ProjectCommandParts{m_doc, m_prompt, m_files, *m_procedure, m_recent, *this});
  m_parts.emplace(ScreenParts{m_doc, m_prompt, m_files, *m_procedure, *m_rules, m_online, m_settings.services,
                              m_gate, [this](SwitchOutcome outcome) { Follow(outcome); },
                              [this] { EditApiParameters(); },
                              [this] { return m_table.runs.calculateFaultSpectra(*m_parts); }});
  m_gate.SetScreenOnDisplay([this] { return m_ended ? nullptr : m_frame->ScreenOnDisplay(); });
  m_frame->SetRuns([this] { return m_table.runs.computeMissingSpectra(*m_parts); },
                   m_parts->calculateFaultSpectra,
                   [this] { return m_table.runs.runRespAdjustment(*m_parts); });
  ConnectFrame();
  ConnectFileMenu();
  ConnectSettingsMenu();
  ConnectHelpMenu();
}

void CMorvaneApp::MakeScreens() {
  for (const ScreenId id : kScreenOrder)
    if (const auto make = m_table.screens.find(id); make != m_table.screens.end())
      m_frame->AddScreen(id, make->second(*m_parts));
}

void CMorvaneApp::ConnectFrame() {
  CMainFrame* frame = m_frame.get();
  frame->SetCloseQuestion([this] { return MayClose(); });
  QObject::connect(frame, &CMainFrame::FileDropped, frame,
                   [this](const QString& path) { Run([&] { m_projects->OpenDropped(path); }); });
  QObject::connect(frame->Pane(), &CPaneFlow::StepPressed, frame,
                   [this](FlowStep step) { Run([&] { Follow(m_procedure->PressStep(step)); }); });
}

bool CMorvaneApp::MayClose() {
  // The end of a session asks to close also behind a dialog, whose answer or run is still open.
  Run([this] {
    if (m_projects->MayLeaveProject()) EndProgram(0);
  });
  return m_ended.has_value();
}

void CMorvaneApp::Connect(QAction* entry, std::function<void()> command) {
  QObject::connect(entry, &QAction::triggered, m_frame.get(),
                   [this, command = std::move(command)] { Run(command); });
}

void CMorvaneApp::Run(const std::function<void()>& command) {
  // An entry that is ticked has turned its mark over by itself.
  if (!m_gate.Run(command)) m_frame->Menu()->online->setChecked(m_online.IsOnline());
}

void CMorvaneApp::ConnectFileMenu() {
  CMainFrame* frame = m_frame.get();
  MainMenu* menu = frame->Menu();
  Connect(menu->newProject, [this] { m_projects->New(); });
  Connect(menu->openProject, [this] { m_projects->Open(); });
  Connect(menu->saveProject, [this] { m_projects->Save(); });
  Connect(menu->saveProjectAs, [this] { m_projects->SaveAs(); });
  Connect(menu->writeReport, [this] { m_table.writeReport(*m_parts); });
  // It follows the document, which many screens change: looked at whenever the program has nothing to do. So
  // it is right for who opens the menu and for who reads it without.
  QObject::connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, frame,
                   [this] { UpdateReportEntry(); });
  QObject::connect(menu->exitProgram, &QAction::triggered, frame, [frame] { frame->close(); });
  QObject::connect(menu, &MainMenu::RecentChosen, frame, [this, frame](const QString& path) {
    // Refused now: when its turn comes, the dialog in front may have gone.
    if (IsBehindModalWindow(frame)) return;
    // The list is rebuilt by the command: its entries must not go while one of them is being carried out.
    QMetaObject::invokeMethod(
        frame, [this, path] { Run([&] { m_projects->OpenRecent(path); }); }, Qt::QueuedConnection);
  });
}

void CMorvaneApp::ConnectSettingsMenu() {
  MainMenu* menu = m_frame->Menu();
  Connect(menu->apiParameters, [this] { EditApiParameters(); });
  Connect(menu->adjustSettings, [this] {
    if (m_rules->BeginAdjustSettings()) m_table.editAdjustSettings(*m_parts);
  });
  Connect(menu->clearMapCache, [this] { ClearMapImages(); });
  Connect(menu->online, [this] { ToggleOnline(); });
}

void CMorvaneApp::ConnectHelpMenu() {
  MainMenu* menu = m_frame->Menu();
  Connect(menu->manual, [this] { OpenManual({}); });
  auto* const helpKey = new QShortcut(QKeySequence(Qt::Key_F1), m_frame.get());
  QObject::connect(helpKey, &QShortcut::activated, m_frame.get(),
                   [this] { Run([this] { OpenManual(ManualPageHere()); }); });
  Connect(menu->supportPage, [this] { OpenPage(m_settings.supportPage); });
  Connect(menu->portalPage, [this] { OpenPage(m_settings.portalPage); });
  Connect(menu->updateCheck, [] { StartUpdateCheck(true); });
  Connect(menu->about, [this] { CAboutDlg(m_settings.folders, m_frame.get()).exec(); });
}

void CMorvaneApp::EndProgram(int status) {
  m_instance.Release();
  m_gate.Close();
  m_ended = status;
  m_doors.endProgram(status);
}

void CMorvaneApp::Probe(const ServiceSettings& services) {
  const WaitCursor wait;
  m_online.Probe(services, m_prompt);
}

void CMorvaneApp::ToggleOnline() {
  {
    const WaitCursor wait;
    m_online.Toggle(m_settings.services, m_prompt);
  }
  RebuildTitle();
  UpdateMenu();
  m_procedure->RefreshActiveScreen();
  m_frame->update();
}

void CMorvaneApp::EditApiParameters() {
  if (m_rules->BeginApiParameters()) m_table.editApiParameters(*m_parts);
}

void CMorvaneApp::ClearMapImages() {
  if (!m_prompt.Ask(QString::fromUtf16(kClearMapCacheQuestion))) return;
  if (!ClearMapCache(m_settings.folders.Own()))
    m_prompt.Tell(QStringLiteral("地図画像キャッシュを削除できませんでした。"));
}

std::optional<int> CMorvaneApp::ManualPageHere() const {
  QFile table(ManualFile(m_settings.folders, "manual.pages"));
  if (!table.open(QIODevice::ReadOnly)) return std::nullopt;
  return ManualPageOf(table.read(kLargestManualTable), ManualPlaceOf(m_procedure->ActiveScreen()));
}

void CMorvaneApp::OpenManual(std::optional<int> page) {
  const QString path = ManualFile(m_settings.folders, "manual.pdf");
  const QString shown = QDir::toNativeSeparators(path);
  if (!QFileInfo(path).isFile()) {
    m_prompt.Tell(QStringLiteral("取り扱い説明書がありません。次の場所に置いてください。\n") + shown +
                  QStringLiteral("\n\nソースからは、コマンド scripts/manual で作れます。"));
    return;
  }
  const QUrl manual = QUrl::fromLocalFile(path);
  QUrl place = manual;
  if (page) place.setFragment(QStringLiteral("page=%1").arg(*page));
  // What knows no places may still open the file.
  if (!QDesktopServices::openUrl(place) && (!page || !QDesktopServices::openUrl(manual))) {
    m_prompt.Tell(QStringLiteral("取り扱い説明書を開くプログラムがありません。\n") + shown);
    return;
  }
  // Many viewers open a file at its first page all the same, and a desktop without any does not tell.
  const QString opened =
      page ? QStringLiteral("取り扱い説明書の %1 ページ：").arg(*page) : QStringLiteral("取り扱い説明書：");
  m_frame->statusBar()->showMessage(opened + shown);
}

void CMorvaneApp::OpenPage(const QString& address) {
  if (address.isEmpty()) {
    m_prompt.Tell(QStringLiteral("ページの宛先が設定されていません。"), PromptIcon::Information);
  } else if (!QDesktopServices::openUrl(QUrl(address))) {
    m_prompt.Tell(QStringLiteral("ブラウザーを起動できませんでした。\n") + address);
  }
}

void CMorvaneApp::RebuildTitle() {
  m_frame->SetTitle(WindowTitle(m_doc.PathName(), m_online.CaptionMark()));
}

void CMorvaneApp::UpdateReportEntry() {
  m_frame->Menu()->writeReport->setEnabled(m_table.writeReport && OffersReport(m_doc));
}

void CMorvaneApp::UpdateMenu() {
  MainMenu* menu = m_frame->Menu();
  UpdateReportEntry();
  menu->apiParameters->setEnabled(m_doc.guidelineRoute && m_table.editApiParameters);
  menu->adjustSettings->setEnabled(m_table.editAdjustSettings != nullptr);
  menu->clearMapCache->setEnabled(m_doc.guidelineRoute);
  menu->online->setEnabled(m_doc.guidelineRoute);
  menu->online->setChecked(m_online.IsOnline());
  menu->ShowRecent(m_recent.Paths());
}

void CMorvaneApp::Follow(SwitchOutcome outcome) {
  if (outcome == SwitchOutcome::EndProgram) EndProgram(1);
}

TopChoice CMorvaneApp::AskRoute() {
  return m_doors.askRoute(m_frame.get());
}

void CMorvaneApp::ProjectChanged() {
  RebuildTitle();
  UpdateMenu();
  // Every new project and every open reads the tables again.
  m_frame->ShowSampleFolders(SampleTableFolders(m_settings.folders));
}

}  // namespace tremlo

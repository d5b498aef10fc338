#include "pictures/ResponseRoute.h"

#include "pictures/LoneDialogs.h"
#include "pictures/Photographer.h"
#include "window/graphs/GraphView.h"

#include <QAction>
#include <QApplication>
#include <QContextMenuEvent>
#include <QMenu>
#include <QTest>

namespace tremlo::pictures {

namespace {

/// Every menu of the bar below the bar, and its own entries alone as a picture.
void TakeMenus(Photographer& camera) {
  const char* const names[] = {"menu_file", "menu_settings", "menu_help"};
  const QList<QAction*> menus = camera.Frame().Menu()->actions();
  for (qsizetype i = 0; i < 3; ++i) {
    QMenu* const menu = menus[i]->menu();
    menu->popup(camera.Frame().mapToGlobal(QPoint(10, 30)));
    camera.Take(names[i], *menu);
    menu->close();
    Settle();
  }
  camera.Frame().activateWindow();
  Settle();
}

void TakeGraphMenu(Photographer& camera) {
  auto& graph = camera.Find<GraphView>("graph");
  QContextMenuEvent asked(QContextMenuEvent::Mouse, graph.rect().center(),
                          graph.mapToGlobal(graph.rect().center()));
  QCoreApplication::sendEvent(&graph, &asked);
  Settle();
  QWidget* const menu = QApplication::activePopupWidget();
  if (!menu) qFatal("no menu of the graph");
  camera.Take("graph_menu", *menu);
  menu->close();
  Settle();
}

/// The dialogs that a record without a sign of its own, an archive and a name bring up.
void TakeImport(Photographer& camera, const QString& records) {
  camera.nextFile = records + QStringLiteral("/record_near_no_unit.txt");
  camera.TakeDialog("import_record", "CDlgImportRecord", [&] { camera.Press("readButton"); });
  camera.nextFile = QStringLiteral(TREMLO_SOURCE_DIR "/tests/data/records/knet/20000101000000.knt.tar.gz");
  camera.TakeDialog("select_members", "CDlgSelectMembers", [&] { camera.Press("readButton"); });
}

}  // namespace

void TakeResponseRoute(const Places& places, const test::LocalService& service) {
  Photographer camera(places.pictures, service, TopChoice::ResponseRoute);
  TakeLoneDialogs(camera);
  camera.TakeFrame("resp_empty");
  camera.TakeSteps("pane_resp");
  TakeMenus(camera);
  TakeImport(camera, places.records);
  camera.nextFile = places.records + QStringLiteral("/record_dam_ns.csv");
  camera.Press("readButton");
  camera.TakeFrame("resp_seed");
  TakeGraphMenu(camera);
  camera.TakeDialog("graph_edit", "CDlgGraphEdit", [&] { camera.Press("settingsButton"); });
  camera.PressStep(FlowStep::RespAdjustSpectrum);
  camera.nextFile = camera.ProgramFolder() + QStringLiteral("/LowSpec/h20_h.csv");
  camera.Press("readButton");
  camera.TakeFrame("resp_target");
  camera.PressStep(FlowStep::RespVisualization);
  camera.Press("specButton");
  camera.TakeFrame("resp_result");
  camera.TakeDialog("adjust_setting", "CDlgAdjustSetting",
                    [&] { camera.Frame().Menu()->adjustSettings->trigger(); });
  camera.TakeDialog("about", "aboutDlg", [&] { camera.Frame().Menu()->about->trigger(); });
}

}  // namespace tremlo::pictures

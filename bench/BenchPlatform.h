#pragma once

#include <QDir>
#include <QFile>
#include <QString>

#include <cstdio>

namespace tremlo {

/// Without a wish of the user in QT_QPA_PLATFORM windows are painted offscreen, on a screen of usual size.
/// Call before the application object is made; `folder` takes the description of the screen.
inline void PaintOffscreenByDefault(const QString& folder) {
  // Said for every window: there is no window manager to take the hints.
  qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString& text) {
    if (!text.contains(u"propagateSizeHints")) std::fprintf(stderr, "%s\n", qUtf8Printable(text));
  });
  if (!qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) return;
  QFile screen(QDir(folder).filePath(QStringLiteral("screen.json")));
  if (!screen.open(QIODevice::WriteOnly) ||
      screen.write(R"({"screens":[{"name":"screen","x":0,"y":0,"width":3840,"height":2160,"dpr":1,)"
                   R"("logicalDpi":96,"logicalBaseDpi":96}]})") < 0)
    qFatal("no description of the screen");
  qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + QFile::encodeName(screen.fileName()));
}

}  // namespace tremlo

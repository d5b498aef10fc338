#pragma once

#include "BenchPlatform.h"
#include "ProgramFolder.h"
#include "support/LocalService.h"
#include "support/TestHome.h"

#include <QApplication>

#include <cstddef>

namespace tremlo {

/// The main of a program that walks a way through the window several times and prints its table: a Way is
/// made of the program's folder and the services of its start.
template <class Way>
int WalkSteps(int argc, char** argv, void (*prepare)(const ProgramFolder&) = nullptr) {
  constexpr std::size_t kRounds = 5;
  const test::TestHome home;
  const ProgramFolder folder;
  PaintOffscreenByDefault(folder.Path());
  const QApplication application(argc, argv);
  const test::LocalService service;
  if (prepare) prepare(folder);
  Way way(folder, service.Settings(QStringLiteral("https")));
  for (std::size_t i = 0; i < kRounds; ++i) way.Run();
  way.Print();
  return 0;
}

}  // namespace tremlo

#include "window/waves/DlgReadRecord.h"

#include "window/graphs/NamedControl.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QLayout>
#include <QPushButton>

#include <chrono>
#include <exception>
#include <future>
#include <memory>
#include <thread>

namespace tremlo {

namespace {

constexpr int kWhole = 1000;  // of the progress
constexpr std::chrono::milliseconds kAtOnce{150};

}  // namespace

CDlgReadRecord::CDlgReadRecord(QWidget* parent)
    : RunDialog(QStringLiteral("記録を読み込んでいます。"), kEndMessage, parent) {
  setObjectName(QStringLiteral("CDlgReadRecord"));
  setWindowTitle(QStringLiteral("読込中"));
  setAccessibleName(windowTitle());
  auto* const cancel = NamedButton<QPushButton>("cancelButton", QStringLiteral("キャンセル"), this);
  cancel->setAutoDefault(false);  // a Return typed ahead gives nothing up
  connect(cancel, &QAbstractButton::clicked, this, &CDlgReadRecord::reject);
  layout()->addWidget(cancel);
  layout()->setAlignment(cancel, Qt::AlignRight);
}

bool CDlgReadRecord::GoesOn(int done, double share) {
  SetProgress(static_cast<int>(share * kWhole), kWhole, QStringLiteral("%1 ファイル").arg(done));
  return !m_cancelled;
}

void CDlgReadRecord::reject() {
  m_cancelled = true;
}

void CDlgReadRecord::keyPressEvent(QKeyEvent* event) {
  QDialog::keyPressEvent(event);  // NOLINT(bugprone-parent-virtual-call): unlike other runs, Esc ends it
}

void CDlgReadRecord::closeEvent(QCloseEvent* event) {
  if (!IsFinished()) reject();
  RunDialog::closeEvent(event);
}

bool ReadBehindDialog(QWidget* parent, const std::function<void(const GoOn& goOn)>& work) {
  CDlgReadRecord dialog(parent);
  // Made before the thread: at its end there may be no memory left to tell of the end.
  auto end = std::make_unique<RunEndEvent>(dialog.EndMessage(), 1);
  std::promise<void> ended;
  const std::future<void> atEnd = ended.get_future();
  std::exception_ptr failure;
  std::thread worker([&] {
    try {
      work([&dialog](int done, double share) { return dialog.GoesOn(done, share); });
    } catch (...) {
      failure = std::current_exception();
    }
    ended.set_value();
    QCoreApplication::postEvent(&dialog, end.release());
  });
  if (atEnd.wait_for(kAtOnce) != std::future_status::ready) {
    dialog.exec();
    // The program may have ended its event loops meanwhile.
    if (!dialog.IsFinished()) dialog.reject();
  }
  worker.join();
  if (failure) std::rethrow_exception(failure);
  return !dialog.IsCancelled();
}

}  // namespace tremlo

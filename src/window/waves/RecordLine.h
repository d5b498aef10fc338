#pragma once

#include "core/ask/Prompt.h"
#include "core/records/RecordNote.h"
#include "window/graphs/CommandGate.h"

#include <QWidget>

#include <functional>
#include <optional>
#include <vector>

class QAbstractButton;

namespace tremlo {

class NoteLabel;

/// The line below a wave that tells what was read from its file. A file that was read as the program's own
/// for lack of a sign can be read as another format from here. It takes no room where there is nothing to
/// tell.
class RecordLine : public QWidget {
  Q_OBJECT
 public:
  /// `readOtherwise` is called as a command, with the path of the file.
  RecordLine(Prompt& prompt, CommandGate& gate, std::function<void(const QString& path)> readOtherwise,
             QWidget* parent);

  void Tell(const std::optional<RecordNote>& note);
  /// The controls in reading order.
  std::vector<QWidget*> Controls() const;

 private:
  std::optional<RecordNote> m_note;
  NoteLabel* m_label;
  QAbstractButton* m_detailsButton;
  QAbstractButton* m_otherButton;
};

}  // namespace tremlo

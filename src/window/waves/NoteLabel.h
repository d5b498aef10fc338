#pragma once

#include <QLabel>

namespace tremlo {

/// Lines of text below a graph. They take no room while there is nothing to tell, and no more than their text
/// needs at the width that there is.
class NoteLabel : public QLabel {
  Q_OBJECT
 public:
  /// A screen reader says `spokenName` before the text.
  NoteLabel(const char* objectName, QString spokenName, QWidget* parent);

  void Tell(const QString& text);
  /// Text behind so many lines is left out on the screen; it is told by the tool tip, and read out.
  void SetMostLines(int lines) { m_mostLines = lines; }
  /// What the tool tip tells of the parts of the text, whatever they are.
  void SetDefinitions(const QString& definitions) { m_definitions = definitions; }

  /// No: around a layout with such a label a scroll area enforces the preferred height in place of the least
  /// one, and the graph above would not give way. The label sees to its height itself.
  bool hasHeightForWidth() const override { return false; }

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void FitHeight();

  bool Fits(const QString& text);

  QString m_spokenName;
  QString m_told;
  QString m_definitions;
  int m_mostLines = 0;  ///< 0: as many as there are
};

}  // namespace tremlo

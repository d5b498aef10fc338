#pragma once

#include "core/ask/FileDialogs.h"
#include "core/ask/Prompt.h"
#include "core/records/RecordImport.h"

#include <QDialog>

#include <functional>
#include <memory>

class QCheckBox;
class QComboBox;
class QGridLayout;
class QLabel;
class QPlainTextEdit;

namespace tremlo {

class CDrawGraph;
class CExpEdit;
class CSpread7;
class GraphView;

/// Shows what was found in the file of a record, asks what the file leaves open, and lets the user choose
/// what of it is to be read and how. Works on the import; stores nothing.
class CDlgImportRecord : public QDialog {
  Q_OBJECT
 public:
  /// Import, prompt and files outlive the dialog.
  CDlgImportRecord(RecordImport& import, Prompt& prompt, FileDialogs& files, QWidget* parent);

  void accept() override;

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  QWidget* MakeFormatRow();
  QWidget* MakeHead();
  QWidget* MakeComponents();
  QWidget* MakeFields();
  QWidget* MakeGraph(FileDialogs& files);
  QWidget* MakeWarnings();
  QWidget* MakeButtons();
  void AddField(QGridLayout& layout, QWidget* field, const QString& label, const QString& unit = {});
  QComboBox* MakeCombo(const char* name, const QStringList& texts, std::function<void(int)> chosen);
  /// A field for a number, which may be left empty where `mayBeEmpty`. `take` has the number, or nothing.
  CExpEdit* MakeNumber(const char* name, const QString& refusal, bool mayBeEmpty,
                       const std::function<bool(std::optional<double>)>& take);

  void Answer(const std::function<void(RecordAnswers&)>& change);
  /// A field for the number of a line, which may be left empty.
  CExpEdit* MakeLineEdit(const char* name, std::optional<std::size_t> RecordAnswers::*line);
  void TakeOffset();
  bool TakeSpan(double from, std::optional<double> to);
  /// All of it anew: the files have been read in another way.
  void ShowReadings();
  void ShowHead();
  void ShowFields();
  /// What would be read, for the choices as they are.
  void ShowOutcome();
  std::optional<std::size_t> ShownComponent() const;
  std::unique_ptr<CDrawGraph> MakeCurve() const;
  QWidget* FieldOf(ImportFault::Field field) const;

  RecordImport& m_import;
  Prompt& m_prompt;
  QComboBox* m_formatCombo;
  QLabel* m_sign;
  QPlainTextEdit* m_head;
  CSpread7* m_grid;
  QComboBox* m_unitCombo;
  CExpEdit* m_stepEdit;
  QComboBox* m_layoutCombo;
  QComboBox* m_decimalCombo;
  CExpEdit* m_firstLineEdit;
  CExpEdit* m_lastLineEdit;
  QCheckBox* m_missingCheck;
  QCheckBox* m_allSamplesCheck;
  QComboBox* m_offsetCombo;
  CExpEdit* m_offsetEdit;
  CExpEdit* m_fromEdit;
  CExpEdit* m_toEdit;
  QLabel* m_caption;
  GraphView* m_graph;
  QPlainTextEdit* m_warnings;
  double m_offsetSeconds = 1.0;
  CExpEdit* m_entered = nullptr;  ///< the field whose entry the Return that is under way has taken
};

}  // namespace tremlo

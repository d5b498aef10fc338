#pragma once

#include "core/ask/FileDialogs.h"
#include "core/ask/Prompt.h"
#include "core/graphs/GraphRange.h"
#include "core/project/MorvaneDoc.h"
#include "core/records/RecordImport.h"
#include "window/graphs/CommandGate.h"
#include "window/graphs/Screen.h"

#include <functional>
#include <memory>
#include <tuple>
#include <vector>

class QAbstractButton;
class QHBoxLayout;

namespace tremlo {

class CDrawGraph;
class CExpEdit;
class CSpread7;
class RecordLine;
class WaveGraphPanel;
struct GridChange;

/// What the two screens that register waves share: the samples of one wave in a grid, its time step, its
/// extremes, its three graphs, and the reading of files with the line of what was read. Which wave that is,
/// and what a change of its data asks and clears, is the screens' own.
class WaveRegistration : public Screen {
  Q_OBJECT

 protected:
  /// `onlyOne`: there is a single wave, so that of a file one component is read.
  WaveRegistration(CMorvaneDoc& doc, Prompt& prompt, FileDialogs& files, CommandGate& gate, bool onlyOne,
                   QWidget* parent);

  virtual CSeismicWave* Wave() = 0;  ///< the wave on display; null when there is none
  /// One change of the wave's time step or samples. False: it is not made.
  virtual bool ChangeWave(const std::function<void()>& apply) = 0;
  /// A file has been read; there is one wave at least. What throws leaves the document as it was.
  virtual void TakeWaves(std::vector<ImportedWave> waves) = 0;

  /// Lays out what is shared below the row of the wave's name, whose controls come first in the order of the
  /// tab key.
  void BuildBody(QHBoxLayout* nameRow, std::vector<QWidget*> nameControls);
  /// Shows all of the wave, another one from its beginning.
  void ShowWave();
  /// The same for a wave whose data have been changed here.
  void ShowData();
  /// Makes its graph now. Throws std::bad_alloc where there is no memory for it.
  void MakeGraphNow();

  CMorvaneDoc& m_doc;
  Prompt& m_prompt;
  CommandGate& m_gate;
  QAbstractButton* m_readButton;
  QAbstractButton* m_dbButton;
  QAbstractButton* m_helpButton;

 private:
  void MakeButtons();
  void MakeFields();
  void MakeGrids();
  void MakeGraphPanel();
  void ReadFile();
  void ReadOtherwise(const QString& path);
  void Take(std::vector<ImportedWave> waves);
  void ShowHelp();
  bool MayChange(const GridChange& change);
  void EnterTimeStep();
  void FillSampleGrid();
  void ShowTimeStep();
  void ShowExtremes();
  void WidenTimeColumns();
  std::unique_ptr<CDrawGraph> MakeGraph(GraphKind kind);
  std::unique_ptr<CDrawGraph> MakeSpectrumGraph(CSeismicWave& wave);

  FileDialogs& m_files;
  const bool m_onlyOne;
  CExpEdit* m_countEdit;
  CExpEdit* m_timeStepEdit;
  CSpread7* m_sampleGrid;
  CSpread7* m_extremeGrid;
  WaveGraphPanel* m_graphPanel;
  RecordLine* m_recordLine;
  WaveGraphSetting m_edited;                         ///< of the wave, while its dialog is open
  std::tuple<QString, std::size_t, double> m_shown;  ///< name, count and time step of the wave in the grid
};

}  // namespace tremlo

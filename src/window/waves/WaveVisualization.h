#pragma once

#include "core/ask/FileDialogs.h"
#include "core/graphs/GraphRange.h"
#include "core/project/MorvaneDoc.h"
#include "core/waves/WaveFile.h"
#include "window/graphs/CommandGate.h"
#include "window/graphs/Screen.h"

#include <memory>
#include <vector>

class QAbstractButton;
class QCheckBox;
class QHBoxLayout;

namespace tremlo {

class CDrawGraph;
class CExpEdit;
class FiguresLabel;
class NoteLabel;
class WaveGraphPanel;

/// What the two screens "可視化" share: a seed wave and its adjusted wave in one graph of three kinds, with a
/// switch for either curve and the export of either wave, and the target among the response spectra. Which
/// wave that is, and where its spectra come from, is the screens' own.
class WaveVisualization : public Screen {
  Q_OBJECT
 public:
  void Refresh() override;

 protected:
  struct Texts {
    QString exportSeed, exportAdjusted;  ///< on the buttons
  };
  WaveVisualization(CMorvaneDoc& doc, FileDialogs& files, CommandGate& gate, const Texts& texts,
                    QWidget* parent);

  virtual CSeismicWave* Wave() = 0;  ///< the seed wave on display; null when there is none
  /// Before the spectrum of the seed wave is drawn. One that is not valid then is not drawn.
  virtual void PrepareSpectrum(CSeismicWave& /*wave*/) {}
  /// What is told in place of the spectrum of the seed wave that would be drawn; empty where it is drawn.
  virtual QString MissingSpectrumText(const CSeismicWave& /*wave*/) const { return {}; }
  /// The adjusted wave is not empty only after an adjustment. A path of a cancelled dialog is empty.
  virtual void ExportSeed(CSeismicWave& wave, const SavePath& path) = 0;
  virtual void ExportAdjusted(CSeismicWave& wave, const SavePath& path) = 0;

  /// Lays out what is shared behind and below the first row, which begins with what is the screen's own. Its
  /// controls come first in the order of the tab key.
  void BuildBody(QHBoxLayout* firstRow, std::vector<QWidget*> controls);
  void ShowTimeGraph();

  CMorvaneDoc& m_doc;

 private:
  using Export = void (WaveVisualization::*)(CSeismicWave& wave, const SavePath& path);

  void MakeSwitches();
  void MakeExportButtons(const Texts& texts);
  void MakeGraphPanel();
  void ShowSwitches();
  void SetSwitch(std::int32_t CMorvaneDoc::*field, bool on);
  /// `ending`: of the name that is proposed for the file.
  void AskAndExport(const QString& title, const QString& ending, Export write);
  std::unique_ptr<CDrawGraph> MakeGraph(GraphKind kind);
  std::unique_ptr<CDrawGraph> MakeSpectrumGraph(CSeismicWave& wave);
  std::unique_ptr<CDrawGraph> MakeFourierGraph(const CSeismicWave& wave);
  bool DrawsSeed() const { return m_doc.visualShowOrig == 1; }
  bool DrawsAdjusted(const CSeismicWave& wave) const {
    return m_doc.visualShowAdjusted == 1 && wave.adjusted;
  }

  FileDialogs& m_files;
  CommandGate& m_gate;
  CExpEdit* m_countEdit;
  CExpEdit* m_timeStepEdit;
  QCheckBox* m_seedCheck;
  QCheckBox* m_adjustedCheck;
  QCheckBox* m_targetCheck;  ///< display state, which is not stored
  QAbstractButton* m_exportSeedButton;
  QAbstractButton* m_exportAdjustedButton;
  WaveGraphPanel* m_graphPanel;
  FiguresLabel* m_figuresLabel;
  NoteLabel* m_missingLabel;
};

}  // namespace tremlo

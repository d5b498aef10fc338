#pragma once

#include "core/ask/FileDialogs.h"
#include "core/project/ChangeRules.h"
#include "window/graphs/CommandGate.h"
#include "window/graphs/Screen.h"

#include <functional>
#include <memory>

class QAbstractButton;
class QLabel;

namespace tremlo {

class AttenuationRows;
class CSpread7;
class WaveGraphPanel;
struct GraphDoors;

/// The spectra of the acquired faults by the attenuation relation: the relation, and for each plane its
/// ground class, colour, whether it is drawn and whether it may become the base spectrum. What touches a
/// plane that is the base asks first.
class CFrmMakeSeismicWave2 : public Screen {
  Q_OBJECT
 public:
  /// What the screen asks of the program around it.
  struct Doors {
    /// Computes the spectra of all planes afresh. False: the user has been told, and the program ends.
    std::function<bool()> calculate;
    /// Told the outcome of each switch that the screen asks for, and the end of the program.
    std::function<void(SwitchOutcome)> follow;
  };

  CFrmMakeSeismicWave2(CMorvaneDoc& doc, Prompt& prompt, FileDialogs& files, WorkProcedure& procedure,
                       ChangeRules& rules, CommandGate& gate, Doors doors, QWidget* parent = nullptr);

  void Refresh() override;

 private:
  void MakeTexts();
  void MakeRelationGrid(Prompt& prompt, ChangeRules& rules);
  void MakePlaneGrid(Prompt& prompt, ChangeRules& rules);
  void MakeButtons();
  void MakeGraphPanel(const GraphDoors& doors);
  void LayOut();
  QLabel* MakeText(const char* name, const QString& text);
  QAbstractButton* MakeAllButton(const char* name, const QString& text,
                                 void (CFrmMakeSeismicWave2::*act)(bool), bool on);

  // What the buttons do, one function each.
  void ReturnToFaults();
  void ExplainRelation();
  void ShowAll(bool shown);
  void UseAll(bool use);

  void Calculate();
  void ShowPlanes();

  CMorvaneDoc& m_doc;
  WorkProcedure& m_procedure;
  CommandGate& m_gate;
  Doors m_doors;
  QLabel* m_sourceLabel;
  QLabel* m_acquisitionLine;
  QAbstractButton* m_resetButton;
  CSpread7* m_relationGrid;
  QAbstractButton* m_referButton;
  std::vector<QAbstractButton*> m_allButtons;
  std::shared_ptr<AttenuationRows> m_planes;
  CSpread7* m_planeGrid;
  WaveGraphPanel* m_graphPanel;
};

}  // namespace tremlo

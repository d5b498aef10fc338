#pragma once

#include "core/project/ChangeRules.h"
#include "window/graphs/CommandGate.h"
#include "window/graphs/Screen.h"
#include "window/location/MapControl.h"

#include <functional>

class QAbstractButton;
class QGroupBox;
class QLabel;
class QRadioButton;
class QStackedWidget;

namespace tremlo {

class CExpEdit;
class CSpread7;
class FaultRows;
class MapAttribution;

/// "距離減衰式（断層）", first screen: the faults around the site are acquired from the hazard service,
/// listed plane by plane, and drawn on a map.
class CFrmMakeSeismicWave1 : public Screen {
  Q_OBJECT
 public:
  /// What it works with; all of it outlives the screen.
  struct Parts {
    CMorvaneDoc& doc;
    Prompt& prompt;
    ChangeRules& rules;
    WorkProcedure& procedure;
    CommandGate& gate;
    const ServiceSettings& services;
    std::function<bool()> isOnline;
    std::function<void()> editApiParameters;  ///< the program's command, with its questions
    std::function<void(SwitchOutcome)> follow;
  };

  CFrmMakeSeismicWave1(Parts parts, TileCache tiles, QWidget* parent = nullptr);

  void Entered() override;
  void Left() override;
  void CommandBegins() override;
  void CommandEnded() override;
  void Refresh() override;

 private:
  struct Grid {
    CSpread7* view = nullptr;
    std::shared_ptr<FaultRows> rows;
  };

  void MakeModes();
  void MakeRange();
  void MakeButtons();
  void MakeMap();
  Grid MakeGrid(const char* name, std::int32_t acquireMode);
  QRadioButton* MakeMode(const char* name, const QString& text, std::int32_t mode);
  QAbstractButton* MakeCommand(const char* name, const QString& text,
                               void (CFrmMakeSeismicWave1::*command)());
  QGroupBox* MakeAcquisitionGroup();
  QWidget* MakeTextColumn();
  QWidget* MakeMapColumn();

  // What the buttons do, one function each.
  void ChooseMode(std::int32_t mode);
  void Acquire();
  void EditParameters();
  void GoToAttenuation();

  void TakeRange();
  void ShowMode();
  void ShowRange();
  void ShowGrid(Grid& grid);
  void ShowOnline();
  void ShowSources();
  void TellPointer(const QString& text);

  Parts m_parts;
  CMorvaneDoc& m_doc;
  QAbstractButton* m_screenInfo;
  QAbstractButton* m_rankingInfo;
  QRadioButton* m_rankingRadio;
  QRadioButton* m_rangeRadio;
  CExpEdit* m_rangeEdit;
  QAbstractButton* m_parametersButton;
  QAbstractButton* m_acquireButton;
  QAbstractButton* m_attenuationButton;
  QLabel* m_offlineLabel;
  QLabel* m_sourceLabel;
  QLabel* m_acquisitionLabel;
  MapControl* m_map;
  MapAttribution* m_attribution;
  QStackedWidget* m_grids;
  Grid m_rankingGrid;
  Grid m_rangeGrid;
};

}  // namespace tremlo

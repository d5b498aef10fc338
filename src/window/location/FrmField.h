#pragma once

#include "core/location/SiteDrag.h"
#include "core/project/ChangeRules.h"
#include "window/graphs/CommandGate.h"
#include "window/graphs/Screen.h"
#include "window/location/MapControl.h"

#include <memory>

class QLabel;

namespace tremlo {

class CExpButton;
class CSpread7;
class GridData;
class MapAttribution;

/// "現場設定": the texts of the job and the site, the site's position, typed or dragged on the map under its
/// fixed crosshair, and the plane zone. Once faults have been fetched a change of position or zone asks
/// first.
class CFrmField : public Screen {
  Q_OBJECT
 public:
  CFrmField(CMorvaneDoc& doc, Prompt& prompt, ChangeRules& rules, CommandGate& gate,
            MapControl::OnlineFlag online, TileCache tiles, QWidget* parent = nullptr);

  void Entered() override;
  void Left() override;
  void CommandBegins() override;
  void CommandEnded() override;
  void Refresh() override;

 private:
  void MakeGrids();
  void MakeMap();
  void MakeButtons();
  QWidget* MakeTextColumn();
  QWidget* MakeMapColumn();
  CSpread7* MakeGrid(const char* name, const QString& spokenName, std::unique_ptr<GridData> rows);

  // What the buttons do, one function each.
  void SelectZone();
  void ReturnToSite();

  bool MayChangeSite();
  bool MayDragSite();
  void TakeTexts();
  void TakePosition();
  void TakeZone();
  void EndDrag();
  void ApplyDrag(SiteDrag::Outcome outcome);
  void ShowSite();
  void ShowPosition(const SitePosition& position);
  void ShowPlaneTexts();
  void TellPointer(const QString& text);

  CMorvaneDoc& m_doc;
  Prompt& m_prompt;
  ChangeRules& m_rules;
  CommandGate& m_gate;
  MapControl* m_map;
  SiteDrag m_drag;
  SitePosition m_position;  ///< what the position grid shows
  CSpread7* m_jobGrid;
  CSpread7* m_siteGrid;
  CSpread7* m_positionGrid;
  CSpread7* m_zoneGrid;
  CSpread7* m_commentGrid;
  CExpButton* m_zoneButton;
  CExpButton* m_backButton;
  QLabel* m_planeLabel;
  QLabel* m_hintLabel;
  MapAttribution* m_attribution;
};

}  // namespace tremlo

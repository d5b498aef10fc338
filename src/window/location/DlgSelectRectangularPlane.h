#pragma once

#include "core/ask/Prompt.h"
#include "core/files/ProgramFolders.h"
#include "core/location/DPoly.h"

#include <QDialog>

#include <optional>
#include <vector>

class QLabel;

namespace tremlo {

class CSpread7;
class ZoneMapView;

/// "平面直角座標系番号の選択": the 19 zones in a grid and on a map of Japan.
class CDlgSelectRectangularPlane : public QDialog {
  Q_OBJECT
 public:
  /// `folders`: where the map's picture is. `current`: the zone selected at first, 0 to 18, or -1 for none.
  CDlgSelectRectangularPlane(const ProgramFolders& folders, std::vector<CDPoly> areas, int current,
                             QWidget* parent);

  int Selected() const { return m_selected; }  ///< 0 to 18, or -1

 private:
  void MakeGrid();
  QWidget* MakeHeading();
  void Select(int index);
  void ShowRow(int index, bool selected);
  void ShowHelp();

  ZoneMapView* m_map;
  CSpread7* m_grid;
  QLabel* m_area;
  int m_selected = -1;
};

/// Reads the areas from the tables and lets the user choose. None when the file of the areas is
/// faulty, which the user is told in place of the dialog, or when the user has cancelled; else the selection,
/// -1 for none.
std::optional<int> SelectZoneDialog(const ProgramFolders& folders, int current, Prompt& prompt,
                                    QWidget* parent);

}  // namespace tremlo

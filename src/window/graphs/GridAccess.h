#pragma once

namespace tremlo {

class CSpread7;

/// Makes the grids speak to assistive technology for themselves, each cell by row and column: what it holds,
/// of a check cell its column and state, and as its action what a click does. To be called before a grid is
/// used; calls behind the first have no effect.
void InstallGridAccess();

/// Tells assistive technology the state of a check cell, rows and columns from 1.
void TellCheckState(CSpread7& grid, int row, int column);

}  // namespace tremlo

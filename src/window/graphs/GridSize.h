#pragma once

namespace tremlo {

class CSpread7;

/// The height of a grid that shows so many rows, its titles and its frame.
int HeightOf(const CSpread7& grid, int rows);

/// All rows and columns in sight: nothing to scroll.
void FitRows(CSpread7& grid);

/// A column as wide as its title, or that many digits where they need more, whatever the font.
void FitColumn(CSpread7& grid, int column, int digits);

}  // namespace tremlo

// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#ifndef NORDIKA_APP_CELL_BLOCKS_H
#define NORDIKA_APP_CELL_BLOCKS_H

class QTableWidget;

namespace nordika {

/// Copies the block around the selected cells to the clipboard as spreadsheets do: the
/// cells of a row are parted by tabs, the rows by line feeds. Cells of the block that are
/// not selected count as empty. Where none is selected, the current cell is copied.
void copyCells(const QTableWidget& grid);

/// Writes a block from the clipboard into the cells from the first selected one to the
/// right and down, as far as the grid reaches. A text without tabs and line ends goes into
/// the current cell. If the clipboard holds no text, nothing changes.
void pasteCells(QTableWidget& grid);

/// Empties the selected cells. A cell without an item stays without.
void emptyCells(const QTableWidget& grid);

}  // namespace nordika

#endif

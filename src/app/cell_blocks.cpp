// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include "app/cell_blocks.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QTableWidget>

namespace nordika {

namespace {

// The rows and columns that the selected cells reach over.
QRect blockOf(const QTableWidget& grid) {
  QRect block;
  for (const QModelIndex& cell : grid.selectionModel()->selectedIndexes())
    block |= QRect(cell.column(), cell.row(), 1, 1);
  return block.isNull() ? QRect(grid.currentColumn(), grid.currentRow(), 1, 1) : block;
}

}  // namespace

void copyCells(const QTableWidget& grid) {
  const QItemSelectionModel& selection = *grid.selectionModel();
  const QRect block = blockOf(grid);
  QStringList rows;
  for (int row = block.top(); row <= block.bottom(); ++row) {
    QStringList cells;
    for (int column = block.left(); column <= block.right(); ++column) {
      const QModelIndex cell = grid.model()->index(row, column);
      const bool copied = selection.isSelected(cell) || !selection.hasSelection();
      // A tab in a text is a blank of the language.
      cells << (copied ? cell.data().toString().replace('\t', ' ') : QString());
    }
    rows << cells.join('\t');
  }
  QGuiApplication::clipboard()->setText(rows.join('\n'));
}

void pasteCells(QTableWidget& grid) {
  QString text = QGuiApplication::clipboard()->text();
  text.replace("\r\n", "\n").replace('\r', '\n');
  const bool isBlock = text.contains('\t') || text.contains('\n');
  if (text.isEmpty()) return;
  if (text.endsWith('\n')) text.chop(1);
  const QPoint first =
      isBlock ? blockOf(grid).topLeft() : QPoint(grid.currentColumn(), grid.currentRow());
  int row = first.y();
  for (const QString& cells : text.split('\n')) {
    int column = first.x();
    for (const QString& cell : cells.split('\t')) {
      // Beyond the edge there is no cell to set.
      grid.model()->setData(grid.model()->index(row, column), cell);
      ++column;
    }
    ++row;
  }
}

void emptyCells(const QTableWidget& grid) {
  for (QTableWidgetItem* cell : grid.selectedItems())
    cell->setText("");
}

}  // namespace nordika

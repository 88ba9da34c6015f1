// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#ifndef NORDIKA_APP_CELLS_H
#define NORDIKA_APP_CELLS_H

#include <QStyledItemDelegate>
#include <QTableWidget>

namespace nordika {

/// A cell of the Jacobi grid. Screen readers say its row, its column and its text.
class Cell : public QTableWidgetItem {
 public:
  /// A cell without text.
  Cell() : QTableWidgetItem("") {}
  /// An empty cell, as the grid makes one when the user types where none is.
  QTableWidgetItem* clone() const override { return new Cell; }
  /// The text of the cell, or what screen readers say.
  QVariant data(int role) const override;
};

/// The looks, tool tips and keys of the cells of the Jacobi grid.
///
/// A text that is too long has narrower letters, then an ellipsis. Tool tips have the
/// whole text. Whether a cell is being edited or not, Tab and Shift+Tab go from cell to
/// cell, out of the last cell to what follows in the focus chain, and out of the first
/// one to what precedes. With Ctrl they leave at once. While none is being edited, Delete
/// empties the selected cells, and the keys of the clipboard copy and paste blocks.
class Cells : public QStyledItemDelegate {
 public:
  /// Becomes the delegate of the grid, which owns it.
  explicit Cells(QTableWidget& grid);

  /// Shows "∂f1/∂x2 = " and the text of the cell as its tool tip.
  bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                 const QModelIndex& index) override;

 protected:
  /// Narrows the letters of the cell.
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;
  /// Filters the events of the grid, and of the editors of its cells.
  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  bool leaves(const QKeyEvent& key) const;
  void leave(QKeyEvent& key, QWidget* editor);
  bool changesCells(const QKeyEvent& key);

  QTableWidget& table;
};

}  // namespace nordika

#endif

// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include "app/cells.h"

#include <QCoreApplication>
#include <QKeyEvent>

namespace nordika {

namespace {

bool isBack(const QKeyEvent& key) {
  return key.key() == Qt::Key_Backtab || (key.modifiers() & Qt::ShiftModifier) != 0;
}

}  // namespace

QVariant Cell::data(int role) const {
  if (role != Qt::AccessibleTextRole) return QTableWidgetItem::data(role);
  const QString place = QString("Строка %1, столбец %2").arg(row() + 1).arg(column() + 1);
  return text().isEmpty() ? place : place + ": " + text();
}

CellKeys::CellKeys(QTableWidget& grid) : QStyledItemDelegate(&grid), table(grid) {
  grid.setItemDelegate(this);
  grid.installEventFilter(this);
}

bool CellKeys::leaves(const QKeyEvent& key) const {
  if (key.key() != Qt::Key_Tab && key.key() != Qt::Key_Backtab) return false;
  if ((key.modifiers() & Qt::ControlModifier) != 0) return true;
  const int last = isBack(key) ? 0 : table.rowCount() - 1;
  return table.currentRow() == last && table.currentColumn() == last;
}

bool CellKeys::eventFilter(QObject* object, QEvent* event) {
  const bool isEditor = object != &table;
  // Without this navigation the table passes the keys on to the focus chain.
  if (event->type() == QEvent::KeyPress && table.tabKeyNavigation() &&
      leaves(*static_cast<QKeyEvent*>(event))) {
    const bool back = isBack(*static_cast<QKeyEvent*>(event));
    if (isEditor) {
      emit commitData(qobject_cast<QWidget*>(object));
      emit closeEditor(qobject_cast<QWidget*>(object));
    }
    QKeyEvent step(QEvent::KeyPress, back ? Qt::Key_Backtab : Qt::Key_Tab, Qt::NoModifier);
    table.setTabKeyNavigation(false);
    QCoreApplication::sendEvent(&table, &step);
    table.setTabKeyNavigation(true);
    return true;
  }
  return isEditor && QStyledItemDelegate::eventFilter(object, event);
}

}  // namespace nordika

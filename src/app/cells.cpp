// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include "app/cells.h"

#include <QCoreApplication>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QTextDocument>
#include <QToolTip>

#include "app/cell_blocks.h"
#include "app/letters.h"

namespace nordika {

namespace {

// In percent. The letters of narrower ones touch each other at the size of the grid.
constexpr int kLeastStretch = 62;

bool isBack(const QKeyEvent& key) {
  return key.key() == Qt::Key_Backtab || (key.modifiers() & Qt::ShiftModifier) != 0;
}

}  // namespace

QVariant Cell::data(int role) const {
  const bool isHeader = row() < 0;
  if (role != Qt::AccessibleTextRole || isHeader) return QTableWidgetItem::data(role);
  const QString place = QString("Строка %1, столбец %2").arg(row() + 1).arg(column() + 1);
  return text().isEmpty() ? place : place + ": " + text();
}

Cells::Cells(QTableWidget& grid) : QStyledItemDelegate(&grid), table(grid) {
  grid.setWordWrap(false);  // a second line would be below the cell's edge
  grid.setItemDelegate(this);
  grid.installEventFilter(this);
}

bool Cells::helpEvent(QHelpEvent* event, QAbstractItemView* view,
                      const QStyleOptionViewItem& option, const QModelIndex& index) {
  if (event->type() != QEvent::ToolTip)
    return QStyledItemDelegate::helpEvent(event, view, option, index);
  const QString derivative = QString("∂f%1/∂x%2 = ").arg(index.row() + 1).arg(index.column() + 1);
  const QString text = derivative + index.data().toString();
  // Tags in a text are shown as they are, too.
  const bool hasTags = Qt::mightBeRichText(text);
  QToolTip::showText(event->globalPos(),
                     hasTags ? QString("<qt>%1</qt>").arg(text.toHtmlEscaped()) : text, view);
  return true;
}

void Cells::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
  QStyledItemDelegate::initStyleOption(option, index);
  const QStyle& style = *table.style();
  // What styles leave free on both sides of the text, and a pixel for letters that reach
  // beyond their advance.
  const int margin = style.pixelMetric(QStyle::PM_FocusFrameHMargin, option, &table) + 1;
  option->font =
      narrowed(option->font, option->text, option->rect.width() - 2 * margin - 1, kLeastStretch);
}

bool Cells::leaves(const QKeyEvent& key) const {
  if (key.key() != Qt::Key_Tab && key.key() != Qt::Key_Backtab) return false;
  if ((key.modifiers() & Qt::ControlModifier) != 0) return true;
  const int last = isBack(key) ? 0 : table.rowCount() - 1;
  return table.currentRow() == last && table.currentColumn() == last;
}

void Cells::leave(QKeyEvent& key, QWidget* editor) {
  if (editor != nullptr) {
    emit commitData(editor);
    emit closeEditor(editor);
  }
  // Without this navigation the table passes the keys on to the focus chain.
  QKeyEvent step(QEvent::KeyPress, isBack(key) ? Qt::Key_Backtab : Qt::Key_Tab, Qt::NoModifier);
  table.setTabKeyNavigation(false);
  QCoreApplication::sendEvent(&table, &step);
  table.setTabKeyNavigation(true);
}

bool Cells::changesCells(const QKeyEvent& key) {
  if (key.matches(QKeySequence::Copy))
    copyCells(table);
  else if (key.matches(QKeySequence::Paste))
    pasteCells(table);
  else if (key.key() == Qt::Key_Delete && (key.modifiers() & ~Qt::KeypadModifier) == 0)
    emptyCells(table);
  else
    return false;
  return true;
}

bool Cells::eventFilter(QObject* object, QEvent* event) {
  const bool isEditor = object != &table;
  if (event->type() == QEvent::KeyPress && table.tabKeyNavigation()) {
    auto& key = *static_cast<QKeyEvent*>(event);
    if (leaves(key)) {
      leave(key, isEditor ? qobject_cast<QWidget*>(object) : nullptr);
      return true;
    }
    // What an editor leaves of its keys comes to the table, too.
    if (!isEditor && table.hasFocus() && table.currentIndex().isValid() && changesCells(key))
      return true;
  }
  return isEditor && QStyledItemDelegate::eventFilter(object, event);
}

}  // namespace nordika

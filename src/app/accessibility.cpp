// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

// What the window says to screen readers and other assistive tools.

#include <QAccessibleWidget>
#include <QRegularExpression>

#include "app/row.h"
#include "app/widget.h"
#include "ui_widget.h"

using nordika::Row;
using nordika::rowsOf;

namespace {

// To the toolkit a plain QWidget is a filler between others.
QAccessibleInterface* interfaceOf(const QString& className, QObject* object) {
  if (className != "Widget") return nullptr;
  return new QAccessibleWidget(qobject_cast<QWidget*>(object), QAccessible::Window);
}

}  // namespace

void Widget::nameFields() {
  QAccessible::installFactory(interfaceOf);
  // Assistive tools toggle a button without clicking it.
  connect(ui->checkNewton, &QRadioButton::toggled, this, [this](bool isNewton) {
    if (isNewton != (method != 0)) (isNewton ? ui->checkNewton : ui->checkSimpleIters)->click();
  });
  ui->n->setAccessibleName(ui->label_n->toolTip());
  ui->epsilon->setAccessibleName(ui->label_epsilon->toolTip());
  ui->a->setAccessibleName("Параметр a");
  ui->a->setAccessibleDescription(ui->label_a->toolTip());
  ui->q->setAccessibleName("Константа сжатия q");
  ui->jacobiMatrix->setAccessibleName(ui->label_frame_4->text());
  ui->iters->setAccessibleName(ui->label_iters->text().remove(':'));
  ui->taskView->setAccessibleName(ui->label_frame_7->text());
  const QString heading = "label_";
  for (const QLabel* label : findChildren<QLabel*>(QRegularExpression("^label_frame")))
    findChild<QFrame*>(label->objectName().mid(heading.size()))->setAccessibleName(label->text());
  int k = 0;
  for (const Row& row : rowsOf(*ui)) {
    ++k;
    row.init->setAccessibleName(QString("%1 x%2").arg(ui->label_frame_2->text()).arg(k));
    row.result->setAccessibleName(QString("%1 x%2").arg(ui->label_frame_3->text()).arg(k));
  }
}

void Widget::nameEquations() {
  int k = 0;
  for (const Row& row : rowsOf(*ui))
    row.equation->setAccessibleName(QString(method != 0 ? "f%1(x)" : "φ%1(x)").arg(++k));
  ui->taskView->setAccessibleDescription(
      method != 0 ? "f(x) = 0: f1(x1, …, xn) = 0, …, fn(x1, …, xn) = 0"
                  : "x = φ(x): x1 = φ1(x1, …, xn), …, xn = φn(x1, …, xn); "
                    "‖φ(x′) − φ(x″)‖ ≤ q ‖x′ − x″‖, 0 < q < 1");
}

// Cells without items have no names of their own, but those of their row and column.
void Widget::nameCells() {
  QStringList functions;
  QStringList unknowns;
  for (int k = 1; k <= ui->jacobiMatrix->rowCount(); ++k) {
    functions << QString("f%1").arg(k);
    unknowns << QString("x%1").arg(k);
  }
  ui->jacobiMatrix->setVerticalHeaderLabels(functions);
  ui->jacobiMatrix->setHorizontalHeaderLabels(unknowns);
}

// Screen readers say a description that changes under the focus.
void Widget::announceResult() {
  QWidget* widget = focusWidget();
  if (widget == nullptr) return;
  QStringList texts;
  for (const Row& row : rowsOf(*ui))
    if (!row.result->text().isEmpty()) texts << row.resultLabel->text() + ' ' + row.result->text();
  texts << ui->label_iters->text() + ' ' + ui->iters->text();
  const QString description = widget->accessibleDescription();
  widget->setAccessibleDescription(ui->label_frame_3->text() + ": " + texts.join(", "));
  widget->setAccessibleDescription(description);
}

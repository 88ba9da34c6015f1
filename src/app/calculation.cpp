// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include <algorithm>
#include <clocale>

#include <QAbstractItemDelegate>
#include <QApplication>
#include <QMessageBox>

#include "app/late_close.h"
#include "app/letters.h"
#include "app/row.h"
#include "app/run_log.h"
#include "app/widget.h"
#include "nordika/trace.h"
#include "run/foreign.h"
#include "run/messages.h"
#include "run/run.h"
#include "ui_widget.h"

namespace messages = nordika::messages;

namespace {

void showResult(QLineEdit& field, const QString& text) {
  field.setText(text);
  nordika::fitLetters(field, {text});
}

void showError(nordika::LateClose& close, const QString& text) {
  close.collect();
  QMessageBox::information(nullptr, messages::kErrorTitle, text, QMessageBox::Ok);
}

// The engine reads single bytes. Characters outside Latin-1 become question marks, which
// no expression may contain.
std::string bytesOf(const QString& text) {
  return text.toLatin1().toStdString();
}

// The first characters that the language lacks: where they begin, and how many follow each
// other.
std::pair<int, int> foreignIn(const QString& text) {
  const auto isOfLanguage = [](QChar c) { return nordika::isOfLanguage(c.unicode()); };
  const auto begin = std::find_if_not(text.begin(), text.end(), isOfLanguage);
  const auto end = std::find_if(begin, text.end(), isOfLanguage);
  return {static_cast<int>(begin - text.begin()), static_cast<int>(end - begin)};
}

nordika::Row rowOf(const Ui_Widget& ui, int i) {
  const auto rows = nordika::rowsOf(ui);
  if (i < 1 || i > static_cast<int>(rows.size())) throw 42;
  return rows.begin()[i - 1];
}

}  // namespace

void Widget::on_calcButton_clicked() {
  nordika::LateClose close(*this);
  nordika::Trace::takeLoss();
  calculate(close);
  if (!nordika::Trace::takeLoss()) return;
  showError(close,
            QString(messages::kLogNotWhole).arg(QString::fromStdString(nordika::openedRunLog())));
}

void Widget::calculate(nordika::LateClose& close) {
  clearResult();
  commitInput();
  std::setlocale(LC_ALL, "C");
  const nordika::Problem entered = problem();
  QApplication::setOverrideCursor(Qt::WaitCursor);
  const nordika::Outcome outcome = nordika::solve(entered);
  QApplication::restoreOverrideCursor();
  if (outcome.failure) {
    showError(close, QString::fromStdString(outcome.failure->message));
    if (outcome.failure->blame) select(*outcome.failure->blame);
    return;
  }
  auto component = outcome.solution.begin();
  for (const nordika::Row& row : nordika::rowsOf(*ui)) {
    if (component == outcome.solution.end()) break;
    showResult(*row.result, QString::number(*component++, 'g', 6));
  }
  showResult(*ui->iters, QString::number(outcome.iterations));
  announceResult();
}

nordika::Problem Widget::problem() const {
  nordika::Problem problem;
  const int n = ui->n->value();
  problem.isNewton = method != 0;
  problem.eps = ui->epsilon->value();
  problem.a = ui->a->value();
  problem.q = ui->q->value();
  for (int i = 1; i <= n; ++i) {
    problem.functions.push_back(bytesOf(rowOf(*ui, i).equation->text()));
    problem.start.push_back(parseInitX(i));
  }
  for (int cell = 0; problem.isNewton && cell < n * n; ++cell)
    problem.jacobian.push_back(textOfCell(cell / n, cell % n));
  return problem;
}

void Widget::select(const nordika::Blame& blame) const {
  QLineEdit* edit = nullptr;
  if (blame.place.isFunction) {
    edit = rowOf(*ui, blame.place.row + 1).equation;
    edit->setFocus();
    edit->selectAll();
  } else {
    ui->jacobiMatrix->setFocus();
    ui->jacobiMatrix->setCurrentCell(blame.place.row, blame.place.column);
  }
  // A text that has been compiled has no foreign characters.
  QTableWidgetItem* cell = ui->jacobiMatrix->currentItem();
  if (!blame.x.empty() || (edit == nullptr && cell == nullptr)) return;
  const auto [begin, length] = foreignIn(edit != nullptr ? edit->text() : cell->text());
  if (length == 0) return;
  if (edit == nullptr) {
    ui->jacobiMatrix->editItem(cell);
    edit = qobject_cast<QLineEdit*>(focusWidget());
  }
  edit->setSelection(begin, length);
}

// A mouse click on the button takes the focus and thereby ends the editing of a box or a
// cell. Ctrl+Enter does not, nor does a press by an assistive tool.
void Widget::commitInput() {
  for (QAbstractSpinBox* box : findChildren<QAbstractSpinBox*>())
    box->interpretText();
  QAbstractItemDelegate* cells = ui->jacobiMatrix->itemDelegate();
  for (QLineEdit* editor : ui->jacobiMatrix->findChildren<QLineEdit*>()) {
    emit cells->commitData(editor);
    emit cells->closeEditor(editor);
  }
}

std::string Widget::getVars() const {
  return nordika::parameterText(ui->a->value());
}

Function Widget::parseFunction(int i) const {
  return nordika::compile(bytesOf(rowOf(*ui, i).equation->text()), getVars());
}

double Widget::parseInitX(int i) const {
  return rowOf(*ui, i).init->value();
}

Function Widget::parseJacobiMatrixElement(int row, int column) const {
  return nordika::compile(textOfCell(row, column), getVars());
}

std::optional<std::string> Widget::textOfCell(int row, int column) const {
  const QTableWidgetItem* item = ui->jacobiMatrix->item(row, column);
  if (item == nullptr) return std::nullopt;
  return bytesOf(item->data(Qt::DisplayRole).toString());
}

// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include <clocale>

#include <QAbstractItemDelegate>
#include <QMessageBox>

#include "letters.h"
#include "messages.h"
#include "nordika/solver.h"
#include "nordika/trace.h"
#include "row.h"
#include "run.h"
#include "run_log.h"
#include "ui_widget.h"
#include "widget.h"

namespace messages = nordika::messages;

namespace {

void showResult(QLineEdit& field, const QString& text) {
  field.setText(text);
  nordika::fitLetters(field, {text});
}

void showError(const QString& text) {
  QMessageBox::information(nullptr, messages::kErrorTitle, text, QMessageBox::Ok);
}

nordika::Row rowOf(const Ui_Widget& ui, int i) {
  const auto rows = nordika::rowsOf(ui);
  if (i < 1 || i > static_cast<int>(rows.size())) throw 42;
  return rows.begin()[i - 1];
}

}  // namespace

void Widget::on_calcButton_clicked() {
  nordika::Trace::takeLoss();
  calculate();
  if (!nordika::Trace::takeLoss()) return;
  showError(QString(messages::kLogNotWhole).arg(QString::fromStdString(nordika::openedRunLog())));
}

void Widget::calculate() {
  clearResult();
  commitCellEditor();
  std::setlocale(LC_ALL, "C");
  const int n = ui->n->value();
  const double accuracy = ui->epsilon->value();
  std::vector<double> solution;
  int iterations = 0;
  try {
    solution = solve(n, accuracy, iterations);
  } catch (const ExpressionWrongFormat&) {
    showError(QString::fromStdString(nordika::reportFailure()));
    return selectMalformed();
  } catch (...) {
    return showError(QString::fromStdString(nordika::reportFailure()));
  }
  auto component = solution.begin();
  for (const nordika::Row& row : nordika::rowsOf(*ui)) {
    if (component == solution.end()) break;
    showResult(*row.result, QString::number(*component++, 'g', 6));
  }
  showResult(*ui->iters, QString::number(iterations));
}

// The engine finds a leading operator only at evaluation, so the texts that compile
// are then tried at the start.
void Widget::selectMalformed() const {
  const int n = ui->n->value();
  std::vector<double> start;
  for (int i = 1; i <= n; ++i)
    start.push_back(parseInitX(i));
  for (const bool evaluated : {false, true}) {
    const auto isMalformed = [&](const auto& parse) {
      try {
        Function function = parse();
        if (evaluated) function(start);
      } catch (const ExpressionWrongFormat&) {
        return true;
      } catch (...) {  // another fault, of another text maybe
      }
      return false;
    };
    for (int i = 1; i <= n; ++i) {
      if (!isMalformed([&] { return parseFunction(i); })) continue;
      QLineEdit* equation = rowOf(*ui, i).equation;
      equation->setFocus();
      return equation->selectAll();
    }
    for (int cell = 0; method != 0 && cell < n * n; ++cell) {
      if (!isMalformed([&] { return parseJacobiMatrixElement(cell / n, cell % n); })) continue;
      ui->jacobiMatrix->setFocus();
      return ui->jacobiMatrix->setCurrentCell(cell / n, cell % n);
    }
  }
}

std::vector<double> Widget::solve(int n, double accuracy, int& iterations) const {
  std::vector<Function> functions;
  std::vector<double> start;
  for (int i = 1; i <= n; ++i) {
    functions.push_back(parseFunction(i));
    start.push_back(parseInitX(i));
  }
  if (method == 0) {
    SimpleItersProblem problem(functions, start, ui->q->value());
    return solve_nonlinear_system_simple_iters(problem, accuracy, iterations);
  }
  std::vector<std::vector<Function>> jacobi(functions.size());
  for (int i = 0; i < n; ++i) {
    for (int j = 0; j < n; ++j)
      jacobi.begin()[i].push_back(parseJacobiMatrixElement(i, j));
  }
  NewtonProblem problem(functions, start, jacobi);
  return solve_nonlinear_system_newton(problem, accuracy, iterations);
}

// A mouse click on the button takes the focus from the cell and thereby ends its
// editing. A press by an assistive tool leaves the editor open.
void Widget::commitCellEditor() {
  QAbstractItemDelegate* cells = ui->jacobiMatrix->itemDelegate();
  for (QLineEdit* editor : ui->jacobiMatrix->findChildren<QLineEdit*>()) {
    emit cells->commitData(editor);
    emit cells->closeEditor(editor);
  }
}

std::string Widget::getVars() const {
  return nordika::parameterText(ui->a->value());
}

Function Widget::compile(const QString& text) const {
  // The engine reads single bytes. Characters outside Latin-1 become question
  // marks, which no expression may contain.
  return nordika::compiled(text.toLatin1().toStdString(), getVars());
}

Function Widget::parseFunction(int i) const {
  return compile(rowOf(*ui, i).equation->text());
}

double Widget::parseInitX(int i) const {
  return rowOf(*ui, i).init->value();
}

Function Widget::parseJacobiMatrixElement(int row, int column) const {
  const QTableWidgetItem* item = ui->jacobiMatrix->item(row, column);
  if (item == nullptr) throw 42;
  return compile(item->data(Qt::DisplayRole).toString());
}

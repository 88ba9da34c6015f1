// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include <clocale>
#include <cstdio>

#include <QAbstractItemDelegate>
#include <QMessageBox>

#include "font_fit.h"
#include "row.h"
#include "run_log.h"
#include "solver/solver.h"
#include "trace/trace.h"
#include "ui_widget.h"
#include "widget.h"

namespace {

constexpr int kIterationsLimit = 100000;

// A text field leaves its cursor, and the view, at the end of the text; a
// result too long for its field has to show its leading digits.
void showResult(QLineEdit& field, const QString& text) {
  field.setText(text);
  field.setCursorPosition(0);
  if (!showsWhole({&field, text})) field.setToolTip(text);
}

void reportFailure(const std::string& logged, const QString& shown) {
  Trace trace;
  trace << "Error: " << logged << "\n\n";
  trace.flush();
  QMessageBox::information(nullptr, "Ошибка", shown, QMessageBox::Ok);
}

Row rowOf(const Ui_Widget& ui, int i) {
  if (i < 1 || i > 4) throw 42;
  return rowsOf(ui)[static_cast<std::size_t>(i - 1)];
}

}  // namespace

void Widget::on_calcButton_clicked() {
  Trace::takeLoss();
  calculate();
  if (!Trace::takeLoss()) return;
  QMessageBox::information(
      nullptr, "Ошибка",
      "Не удалось полностью записать файл " + QString::fromStdString(openedRunLog()) + ".",
      QMessageBox::Ok);
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
    return reportFailure("expression has wrong format.", "Неправильный формат ввода выражения");
  } catch (const ExpressionBadResult&) {
    return reportFailure(
        "result of expression evaluation is bad (equals to nan or inf).",
        "Значение выражения для заданных аргументов не определено либо слишком велико");
  } catch (const ExpressionUnknownVariable& variable) {
    return reportFailure("expression has unknown variable: " + variable.name,
                         "Неизвестная переменная: " + QString::fromLatin1(variable.name.c_str()));
  } catch (const MaxItersCountAchieved&) {
    return reportFailure(
        "iterations limit achieved.",
        "Превышено предельно допустимое число итераций: " + QString::number(kIterationsLimit));
  } catch (const MatrixIsSingular&) {
    return reportFailure("matrix is singular.",
                         "Матрица Якоби для заданных аргументов является вырожденной");
  } catch (...) {
    return reportFailure("undefined error.", "Неизвестная ошибка");
  }
  std::size_t k = 0;
  for (const Row& row : rowsOf(*ui)) {
    if (k == solution.size()) break;
    showResult(*row.result, QString::number(solution[k++], 'g', 6));
  }
  showResult(*ui->iters, QString::number(iterations));
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
  for (int i = 0; i < n; ++i)
    for (int j = 0; j < n; ++j)
      jacobi[static_cast<std::size_t>(i)].push_back(parseJacobiMatrixElement(i, j));
  NewtonProblem problem(functions, start, jacobi);
  return solve_nonlinear_system_newton(problem, accuracy, iterations);
}

// The mouse takes the focus out of the cell, and so ends its editing. A press
// by an assistive tool does not.
void Widget::commitCellEditor() {
  QAbstractItemDelegate* cells = ui->jacobiMatrix->itemDelegate();
  for (QLineEdit* editor : ui->jacobiMatrix->findChildren<QLineEdit*>()) {
    emit cells->commitData(editor);
    emit cells->closeEditor(editor);
  }
}

std::string Widget::getVars() const {
  char text[32];
  std::snprintf(text, sizeof text, "a = %lg", ui->a->value());
  return text;
}

Function Widget::compile(const QString& text) const {
  // The engine reads single bytes. What Latin-1 has no byte for becomes a
  // question mark, which no expression may contain.
  const QByteArray bytes = text.isEmpty() ? QByteArray("0") : text.toLatin1();
  return {bytes.toStdString(), getVars()};
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

// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#ifndef NORDIKA_APP_WIDGET_H
#define NORDIKA_APP_WIDGET_H

#include <memory>
#include <optional>
#include <string>

#include <QWidget>

#include "nordika/functions.h"

class QSize;
class QString;
class Ui_Widget;

namespace nordika {
class LateClose;
struct Blame;
struct Problem;
}  // namespace nordika

/// The main window: the input panel and the calculation run. Its slots are
/// connected by their names when the form is built.
class Widget : public QWidget {
  Q_OBJECT

 public:
  /// Builds the window for simple iterations and n = 1 and opens the run log;
  /// ends the process when that cannot be opened.
  explicit Widget(QWidget* parent = nullptr);
  ~Widget() override;

  /// Turns the standard error stream into the run log, a new file in the
  /// current directory. Where that fails, says so and ends the process with
  /// status 1.
  void setFiles();

  /// Shows n rows with the wording of the method, and what else depends on the two.
  void refresh();

  /// Makes the Jacobi grid n × n with an item in every cell, for Newton's
  /// method. Cells that stay keep their text.
  void refreshJacobiMatrix();

  /// Empties the Jacobi grid to 0 × 0.
  void clearJacobiMatrix();

  /// Empties the equations and the cells of the Jacobi grid and sets the
  /// numbers back; n, the accuracy and the method stay.
  void clearInput();

  /// Empties the fields of the results.
  void clearResult();

  /// The assignment text "a = " with the value of the parameter, for the
  /// expression engine.
  std::string getVars() const;

  /// The function typed into equation i = 1 .. 4.
  /// @throws int for any other i
  /// @throws ExpressionWrongFormat for a malformed text
  Function parseFunction(int i) const;

  /// The initial value of unknown i = 1 .. 4.
  /// @throws int for any other i
  double parseInitX(int i) const;

  /// The function typed into a cell of the Jacobi grid, counted from 0.
  /// @throws int for a cell without an item
  /// @throws ExpressionWrongFormat for a malformed text
  Function parseJacobiMatrixElement(int row, int column) const;

 private:
  Q_SLOT void on_closeButton_clicked();
  Q_SLOT void on_n_valueChanged(int value);
  Q_SLOT void on_clearButton_clicked();
  Q_SLOT void on_calcButton_clicked();
  Q_SLOT void on_checkSimpleIters_clicked();
  Q_SLOT void on_checkNewton_clicked();
  Q_SLOT void on_helpButton_clicked();

  void fitTexts();
  void explainBoxes();
  void nameFields();
  void nameEquations();
  void nameCells();
  void announceResult();
  void showTask(const QString& picture, const QSize& size);
  void commitInput();
  void calculate(nordika::LateClose& close);
  nordika::Problem problem() const;
  std::optional<std::string> textOfCell(int row, int column) const;
  void select(const nordika::Blame& blame) const;

  int method = 0;  // 0: simple iterations, else Newton's method
  std::unique_ptr<Ui_Widget> ui;
};

#endif

// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include "app/widget.h"

#include <clocale>
#include <cstdlib>
#include <ctime>

#include <QApplication>
#include <QDir>
#include <QGraphicsScene>
#include <QLocale>
#include <QMessageBox>
#include <QShortcut>

#include "app/cells.h"
#include "app/double_click.h"
#include "app/formula.h"
#include "app/letters.h"
#include "app/row.h"
#include "app/run_log.h"
#include "app/wheel.h"
#include "run/messages.h"
#include "ui_widget.h"

using nordika::Row;
using nordika::rowsOf;
namespace messages = nordika::messages;

namespace {

const char kSubscript[] =
    "<html><head/><body><p>%1<span style=\" vertical-align:sub;\">%2</span>%3</p></body></html>";

void setText(QLabel& label, const QString& before, const QString& subscript, const QString& after) {
  label.setText(subscript.isEmpty() ? before + after
                                    : QString(kSubscript).arg(before, subscript, after));
  nordika::fitLetters(label, {before + subscript + after});
}

QIcon iconOf(std::initializer_list<int> sizes) {
  QIcon icon;
  for (const int size : sizes)
    icon.addFile(QString(":/icon/%1.png").arg(size));
  return icon;
}

void pressBy(const char* keys, QPushButton& button) {
  auto* shortcut = new QShortcut(QKeySequence(keys), button.window());
  shortcut->setAutoRepeat(false);
  QObject::connect(shortcut, &QShortcut::activated, &button, &QPushButton::click);
}

}  // namespace

Widget::Widget(QWidget* parent) : QWidget(parent), ui(std::make_unique<Ui_Widget>()) {
  // Otherwise the boxes show and read numbers in the form of the environment's
  // language. The engine only knows the decimal point.
  setLocale(QLocale::c());
  // Before the form is built, so that the fonts of another family are not loaded.
  QApplication::setFont(nordika::inNarrowFamily(QApplication::font()));
  ui->setupUi(this);
  QApplication::setWindowIcon(iconOf({16, 32, 48, 128}));  // of the boxes, too
  std::setlocale(LC_ALL, "C");
  // The 4 × 4 cells leave one pixel for the frame on each side. Some styles draw
  // wider frames.
  if (ui->jacobiMatrix->frameWidth() > 1) ui->jacobiMatrix->setFrameStyle(QFrame::Box);
  new nordika::Cells(*ui->jacobiMatrix);
  ui->jacobiMatrix->setItemPrototype(new nordika::Cell);  // for texts in cells without items
  ui->taskView->setScene(new QGraphicsScene);             // lives until the process ends
  fitTexts();
  explainBoxes();
  nameFields();
  for (QAbstractSpinBox* box : findChildren<QAbstractSpinBox*>()) {
    nordika::turnOnlyWithFocus(*box);
    nordika::selectAllByDoubleClick(*box->findChild<QLineEdit*>());
  }
  for (const Row& row : rowsOf(*ui))
    nordika::selectAllByDoubleClick(*row.result);
  nordika::selectAllByDoubleClick(*ui->iters);
  pressBy("Ctrl+Return", *ui->calcButton);
  pressBy("Ctrl+Enter", *ui->calcButton);  // that of the keypad
  pressBy("F1", *ui->helpButton);
  on_checkSimpleIters_clicked();
  on_n_valueChanged(ui->n->value());
  ui->n->selectAll();
  setFiles();
  std::setlocale(LC_ALL, "C");
}

Widget::~Widget() = default;

void Widget::setFiles() {
  const std::string name = nordika::runLogName(std::time(nullptr));
  if (nordika::openRunLog(name)) {
    const QString path = QDir::current().filePath(QString::fromStdString(name));
    ui->iters->setToolTip(path);
    ui->iters->setAccessibleDescription(path);
    return;
  }
  QMessageBox::information(nullptr, messages::kErrorTitle,
                           QString(messages::kLogNotOpened).arg(QString::fromStdString(name)),
                           QMessageBox::Ok);
  std::exit(EXIT_FAILURE);
}

void Widget::fitTexts() {
  for (QPushButton* button : findChildren<QPushButton*>())
    nordika::fitLetters(*button, {button->text()});
  for (QRadioButton* button : findChildren<QRadioButton*>())
    nordika::fitLetters(*button, {button->text()});
  for (QLabel* label : findChildren<QLabel*>())
    nordika::fitLetters(*label, {label->text()});
  for (QDoubleSpinBox* box : findChildren<QDoubleSpinBox*>())
    nordika::fitLetters(*box,
                        {box->textFromValue(box->minimum()), box->textFromValue(box->maximum())});
  nordika::fitLetters(*ui->n, {QString::number(ui->n->maximum())});
}

void Widget::explainBoxes() {
  ui->n->setToolTip(ui->label_n->toolTip());
  ui->epsilon->setToolTip(ui->label_epsilon->toolTip());
  ui->a->setToolTip(ui->label_a->toolTip());
  ui->q->setToolTip("Константа сжатия");
}

void Widget::refresh() {
  const int n = ui->n->value();
  int k = 0;
  for (const Row& row : rowsOf(*ui)) {
    ++k;
    row.setVisible(k <= n);
    if (k > n) continue;
    const QString digit = QString::number(k);
    setText(*row.before, method != 0 ? "f" : "φ", digit, "(x) = ");
    if (method != 0)
      setText(*row.after, " = 0", "", "");
    else
      setText(*row.after, " = x", digit, "");
  }
  nameEquations();
  ui->label_q->setVisible(method == 0);
  ui->q->setVisible(method == 0);
  refreshJacobiMatrix();
}

void Widget::refreshJacobiMatrix() {
  if (method == 0) return;
  const int n = ui->n->value();
  ui->jacobiMatrix->setRowCount(n);
  ui->jacobiMatrix->setColumnCount(n);
  for (int i = 0; i < n; ++i) {
    for (int j = 0; j < n; ++j) {
      ui->jacobiMatrix->setColumnWidth(j, 90);
      if (ui->jacobiMatrix->item(i, j) == nullptr)
        ui->jacobiMatrix->setItem(i, j, new nordika::Cell);
    }
  }
  nameCells();
}

void Widget::clearJacobiMatrix() {
  ui->jacobiMatrix->setRowCount(0);
  ui->jacobiMatrix->setColumnCount(0);
}

void Widget::clearInput() {
  for (const Row& row : rowsOf(*ui)) {
    row.equation->clear();
    row.init->setValue(0.0);
  }
  ui->a->setValue(0.0);
  ui->q->setValue(0.5);
  ui->jacobiMatrix->clear();
  nameCells();
}

void Widget::clearResult() {
  for (const Row& row : rowsOf(*ui))
    row.result->clear();
  ui->iters->clear();
}

void Widget::showTask(const QString& picture, const QSize& size) {
  auto* formula = new nordika::Formula(picture, size);
  QGraphicsScene* scene = ui->taskView->scene();
  scene->clear();
  scene->addItem(formula);
  // By default the scene keeps the extent of everything it has ever held.
  scene->setSceneRect(formula->boundingRect());
  ui->taskView->show();
}

void Widget::on_closeButton_clicked() {
  close();
}

void Widget::on_n_valueChanged(int /*value*/) {
  refresh();
}

void Widget::on_clearButton_clicked() {
  clearInput();
  clearResult();
}

void Widget::on_checkSimpleIters_clicked() {
  method = 0;
  refresh();
  clearJacobiMatrix();
  showTask(":/res/task1.png", {360, 136});
}

void Widget::on_checkNewton_clicked() {
  method = 1;
  refresh();
  showTask(":/res/task2.png", {375, 105});
}

void Widget::on_helpButton_clicked() {
  const auto editor = ui->jacobiMatrix->findChild<QLineEdit*>();
  const QString typed = editor != nullptr ? editor->text() : QString();
  QMessageBox::information(nullptr, messages::kHelpTitle, messages::kHelp, QMessageBox::Ok);
  if (typed.isEmpty()) return;
  // The box has ended the editing of the cell; what is typed next belongs to its text.
  ui->jacobiMatrix->edit(ui->jacobiMatrix->currentIndex());
  if (auto* again = ui->jacobiMatrix->findChild<QLineEdit*>()) again->end(false);
}

// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#ifndef NORDIKA_RUN_MESSAGES_H
#define NORDIKA_RUN_MESSAGES_H

/// The texts of the message boxes, which nordika-solve writes as lines, and of the error
/// lines of the run log.
namespace nordika::messages {

inline constexpr char kErrorTitle[] = "Ошибка";
inline constexpr char kHelpTitle[] = "Справка";

/// The texts of a failed calculation: in the run log after "Error: ", and in the box. A
/// text that ends in a colon is followed by a detail. The variable's name is in both,
/// the limit in the box alone.
struct Texts {
  const char* logged;
  const char* shown;
};

inline constexpr Texts kWrongFormat = {"expression has wrong format.",
                                       "Неправильный формат ввода выражения"};
inline constexpr Texts kBadResult = {
    "result of expression evaluation is bad (equals to nan or inf).",
    "Значение выражения для заданных аргументов не определено либо слишком велико"};
inline constexpr Texts kUnknownVariable = {"expression has unknown variable: ",
                                           "Неизвестная переменная: "};
inline constexpr Texts kLimitAchieved = {"iterations limit achieved.",
                                         "Превышено предельно допустимое число итераций: "};
inline constexpr Texts kSingularMatrix = {
    "matrix is singular.", "Матрица Якоби для заданных аргументов является вырожденной"};
inline constexpr Texts kUndefinedError = {"undefined error.", "Неизвестная ошибка"};

/// %1 is the name of the run log.
inline constexpr char kLogNotOpened[] = "Не удалось открыть файл %1 на запись.";
/// @copydoc kLogNotOpened
inline constexpr char kLogNotWhole[] = "Не удалось полностью записать файл %1.";

/// The first letter of "Cписок" is a Latin one, in the text that users know.
inline constexpr char kHelp[] =
    "Для ввода функций (например, phi1(x), здесь под x подразумевается набор "
    "переменных x1, x2, ..., xn) необходимо заполнить соответствующее текстовое "
    "поле. Вводимый текст должен являться корректным математическим выражением и "
    "может содержать только латинские буквы, цифры, круглые скобки, знаки "
    "арифметических операций (+ - * / ^), десятичные разделители (.), знаки "
    "экспоненты (e E) и пробелы. Названия функций, переменных и констант должны "
    "начинаться с латинских букв, но могут содержать и цифры. При записи "
    "вещественных чисел обязательно указывать целую часть (0.1 - корректно, .1 - "
    "некорректно). Используемые переменные должны быть известны (от них должна "
    "зависеть вводимая функция, либо это может быть переменная a -- параметр "
    "системы). Функции, соответствующие пустым полям, считаются тождественно равными "
    "0.\n"
    "\n"
    "Cписок доступных функций (вместо x может быть указана любая известная "
    "переменная, например x1) и констант:\n"
    "sin(x)  cos(x)  tg(x)  ctg(x)  arcsin(x)  arccos(x)  arctg(x)  arcctg(x)  "
    "exp(x)  ln(x)  log10(x)  log2(x)  abs(x)  sqrt(x)  sinh(x)  cosh(x)  pi\n"
    "\n"
    "Примеры корректных выражений:\n"
    "sin(2*pi*x1)*exp(-4*pi^2*a*x2)\n"
    "0.5 * (1. + 0.2 - 1e-1)\n"
    "log10(3) - ln(3) / ln(10)\n";

}  // namespace nordika::messages

#endif

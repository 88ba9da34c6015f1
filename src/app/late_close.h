// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#ifndef NORDIKA_APP_LATE_CLOSE_H
#define NORDIKA_APP_LATE_CLOSE_H

#include <QWidget>

namespace nordika {

/// Lets requests to close a window wait while it calculates and shows boxes. The toolkit
/// would drop those that it finds while a box stands.
class LateClose : public QObject {
 public:
  /// From here on requests to close the window wait.
  explicit LateClose(QWidget& window);
  LateClose(const LateClose&) = delete;
  LateClose& operator=(const LateClose&) = delete;
  /// Closes the window if that has been requested.
  ~LateClose() override;

  /// Takes notice of the requests that have come. Keys and clicks that have come as well
  /// are dropped, as they are while a box stands.
  void collect();

 protected:
  /// Takes the request, or drops the input.
  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  QWidget& widget;
  bool isRequested = false;
  bool dropsInput = false;
};

}  // namespace nordika

#endif

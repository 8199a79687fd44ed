// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QPointer>
#include <memory>
#include <utility>

namespace quode {

/// Holds a widget for the one who made it. The widget is deleted with the holder, or when another takes its place,
/// whether or not it has been put into a parent; the holder notices when the parent has deleted it before.
template <typename T>
class Owned {
  public:
    Owned() = default;
    ~Owned() { reset(); }
    Owned(const Owned&) = delete;
    Owned& operator=(const Owned&) = delete;

    Owned& operator=(std::unique_ptr<T> widget) {
        reset(std::move(widget));
        return *this;
    }
    void reset(std::unique_ptr<T> widget = nullptr) {
        const QPointer<T> old = std::exchange(widget_, QPointer<T>(widget.release()));
        delete old.data();
    }

    T* get() const { return widget_.data(); }
    T* operator->() const { return get(); }
    T& operator*() const { return *get(); }
    explicit operator bool() const { return !widget_.isNull(); }

  private:
    QPointer<T> widget_;
};

}  // namespace quode

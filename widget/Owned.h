// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QPointer>
#include <memory>
#include <utility>

namespace quode {

/// Owns a widget. The widget is deleted with its owner, or when another replaces it, whether or not it has a parent; when
/// the parent deletes it first, the owner becomes empty.
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

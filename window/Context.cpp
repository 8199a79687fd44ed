// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "window/Context.h"

#include <exception>

#include "terminal/streams.h"

namespace quode::window {

Context::Context(app::Session& session) : session_(session) {
    session_.reportTo([this](const app::Problem& problem) {
        if (!messages_.isEmpty()) messages_ += ' ';
        messages_ += QString::fromStdString(problem.message);
    });
}

Context::~Context() {
    session_.reportTo(terminal::writeProblem);
}

bool Context::change(const std::function<void()>& action) {
    messages_.clear();
    bool isDone = true;
    try {
        action();
    } catch (const std::exception& error) {
        isDone = false;
        messages_ = QString::fromUtf8(error.what());
    }
    if (!messages_.isEmpty()) tell(messages_);
    Q_EMIT changed();
    return isDone;
}

void Context::tell(const QString& message, std::function<void()> undo) {
    Q_EMIT messageGiven(message, undo);
}

}  // namespace quode::window

// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QTimer>
#include <QWidget>
#include <array>
#include <functional>

#include "desktop/DesktopTheme.h"
#include "window/Context.h"

class QLabel;
class QListWidget;
class QPushButton;
class QScrollArea;
class QStackedWidget;
class QToolButton;

namespace quode::window {

class Page;

/// The settings: pages with their list at the left, or one after the other where the window is narrow.
class SettingsWindow : public QWidget {
    Q_OBJECT

  public:
    explicit SettingsWindow(Context& context);

    /// Opens a page: cities, alarms, times, look, calendar, about. Another name changes nothing.
    void openPage(const QString& key);
    QString openedPage() const;

    /// Shows what is stored now; soon after the call, once for several.
    void refreshSoon();

  protected:
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void addPage(const char* key, const QString& title, Page* page);
    QWidget* newContent();
    void connectAll();
    void refresh();
    void arrange();
    void showMessage(const QString& message, const std::function<void()>& undo);
    void showProblem(const QString& problem);
    void applyTheme();
    bool isNarrow() const;

    Context& context_;
    DesktopTheme theme_;
    QListWidget* list_;
    QWidget* content_ = nullptr;
    QToolButton* back_ = nullptr;
    QLabel* title_ = nullptr;
    QWidget* message_ = nullptr;
    QLabel* messageText_ = nullptr;
    QPushButton* undo_ = nullptr;
    QStackedWidget* stack_ = nullptr;
    std::vector<Page*> pages_;
    std::function<void()> undoAction_;
    bool isPageOpen_ = false;  // of a narrow window
    bool showsProblem_ = false;
    QTimer refreshing_;
};

}  // namespace quode::window

#include "UI/ViewTest.h"

#include <algorithm>

#include <QGuiApplication>
#include <QTest>

namespace ambrel {

namespace {

constexpr int waitMilliseconds = 5000;

/// A control goes before the text that stands beside it.
QAccessibleInterface* find(QAccessibleInterface* root, const QString& name) {
    if (root == nullptr || root->state().invisible) {
        return nullptr;
    }
    auto* best = root->text(QAccessible::Name) == name ? root : nullptr;
    for (int index = 0; index < root->childCount(); ++index) {
        auto* const found = find(root->child(index), name);
        if (found != nullptr && (best == nullptr || best->role() == QAccessible::StaticText)) {
            best = found;
        }
    }
    return best;
}

} // namespace

QuickWindows& ViewTest::windows() {
    if (!windows_) {
        windows_ = std::make_unique<QuickWindows>(
            WindowsNeighbours{desktop, house().settings, house().engine, hotKeys, house().audit, *house().clock,
                              house().rules, house().guard, house().requests, [this]() -> UpdateController& {
                                  return updates;
                              }});
    }
    return *windows_;
}

bool ViewTest::eventually(const std::function<bool()>& holds) {
    return QTest::qWaitFor(holds, waitMilliseconds);
}

QQuickView* ViewTest::window() {
    const auto all = QGuiApplication::topLevelWindows();
    const auto found = std::find_if(all.begin(), all.end(), [](const auto* window) { return window->isVisible(); });
    return found == all.end() ? nullptr : qobject_cast<QQuickView*>(*found);
}

QAccessibleInterface* ViewTest::element(const std::string& name) {
    QCoreApplication::processEvents();
    return window() == nullptr ? nullptr
                               : find(QAccessible::queryAccessibleInterface(window()), QString::fromStdString(name));
}

void ViewTest::click(const std::string& name) {
    auto* const found = element(name);
    ASSERT_NE(found, nullptr) << "nothing is called " << name;
    QTest::mouseClick(window(), Qt::LeftButton, {}, window()->mapFromGlobal(found->rect().center()));
    QCoreApplication::processEvents();
}

void ViewTest::press(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    QTest::keyClick(window(), key, modifiers);
    QCoreApplication::processEvents();
}

} // namespace ambrel

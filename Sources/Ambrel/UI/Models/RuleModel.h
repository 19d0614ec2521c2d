#pragma once

#include "State/AppRule.h"
#include "UI/Models/RulesModel.h"

#include <QObject>
#include <QQmlParserStatus>
#include <QtQml/qqmlregistration.h>

namespace ambrel {

/// The rule that was selected when this object was made. What is set here is stored at once; once another rule is
/// selected it keeps what it showed last, for a view that is on its way out.
class RuleModel : public QObject, public QQmlParserStatus {
    Q_OBJECT
    QML_ELEMENT
    Q_INTERFACES(QQmlParserStatus)
    Q_PROPERTY(ambrel::RulesModel* rules MEMBER rules_ REQUIRED)
    /// False when the selection has no rule.
    Q_PROPERTY(bool exists READ exists NOTIFY changed)
    Q_PROPERTY(bool isDefault READ isDefault NOTIFY changed)
    Q_PROPERTY(bool locked READ locked NOTIFY changed)
    Q_PROPERTY(QString bundleIdentifier READ bundleIdentifier NOTIFY changed)
    Q_PROPERTY(QString displayName READ displayName NOTIFY changed)
    Q_PROPERTY(QString iconSource READ iconSource NOTIFY changed)
    Q_PROPERTY(bool quitOnLastWindowClose READ quitOnLastWindowClose WRITE setQuitOnLastWindowClose NOTIFY changed)
    Q_PROPERTY(bool quitWhenHidden READ quitWhenHidden WRITE setQuitWhenHidden NOTIFY changed)
    Q_PROPERTY(IdleBehavior idleBehavior READ idleBehavior WRITE setIdleBehavior NOTIFY changed)
    Q_PROPERTY(int idleThresholdMinutes READ idleThresholdMinutes WRITE setIdleThresholdMinutes NOTIFY changed)
    Q_PROPERTY(bool includedInQuitAll READ includedInQuitAll WRITE setIncludedInQuitAll NOTIFY changed)

public:
    /// As `AppRule` has them, for QML.
    enum IdleBehavior { None, Hide, Quit };
    Q_ENUM(IdleBehavior)

    using QObject::QObject;

    [[nodiscard]] bool exists() const { return exists_; }
    [[nodiscard]] bool isDefault() const { return isDefault_; }
    [[nodiscard]] bool locked() const { return rule_.systemDefault; }
    [[nodiscard]] QString bundleIdentifier() const { return QString::fromStdString(rule_.bundleIdentifier()); }
    [[nodiscard]] QString displayName() const { return QString::fromStdString(rule_.displayName); }
    [[nodiscard]] QString iconSource() const;
    [[nodiscard]] bool quitOnLastWindowClose() const { return rule_.quitOnLastWindowClose; }
    [[nodiscard]] bool quitWhenHidden() const { return rule_.quitWhenHidden; }
    [[nodiscard]] IdleBehavior idleBehavior() const { return static_cast<IdleBehavior>(rule_.idleBehavior); }
    [[nodiscard]] int idleThresholdMinutes() const;
    [[nodiscard]] bool includedInQuitAll() const { return rule_.includedInQuitAll; }
    void setQuitOnLastWindowClose(bool value);
    void setQuitWhenHidden(bool value);
    void setIdleBehavior(IdleBehavior value);
    void setIdleThresholdMinutes(int value);
    void setIncludedInQuitAll(bool value);

    void classBegin() override {}
    void componentComplete() override;

Q_SIGNALS:
    void changed();

private:
    void refresh();
    template <typename Value> void write(Value AppRule::*field, Value value);

    RulesModel* rules_ = nullptr;
    QString selection_;
    bool exists_ = false;
    bool isDefault_ = false;
    AppRule rule_ = AppRule::initialDefaultRule();
};

} // namespace ambrel

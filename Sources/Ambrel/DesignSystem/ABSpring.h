#pragma once

#include "DesignSystem/ABSpringMotion.h"
#include "DesignSystem/DampedSpring.h"

#include <memory>

#include <QObject>
#include <QQmlParserStatus>

class QAbstractAnimation;

namespace ambrel {

/// A number that follows its target as a damped spring, and keeps its speed when the target changes on the way. Runs
/// only while it moves. The first target is taken without movement. Where motion is reduced it jumps, or, for an
/// opacity, fades.
class ABSpring : public QObject, public QQmlParserStatus {
    Q_OBJECT
    QML_ELEMENT
    Q_INTERFACES(QQmlParserStatus)
    Q_PROPERTY(ambrel::ABSpringMotion motion MEMBER motion_)
    Q_PROPERTY(double target READ target WRITE setTarget NOTIFY targetChanged)
    Q_PROPERTY(double value READ value NOTIFY valueChanged)
    Q_PROPERTY(bool moving READ moving NOTIFY movingChanged)
    Q_PROPERTY(double epsilon MEMBER epsilon_)
    Q_PROPERTY(bool fades MEMBER fades_)

public:
    explicit ABSpring(QObject* parent = nullptr);
    ABSpring(const ABSpring&) = delete;
    ABSpring& operator=(const ABSpring&) = delete;
    ~ABSpring() override;

    [[nodiscard]] double target() const { return target_; }
    [[nodiscard]] double value() const { return state_.position; }
    [[nodiscard]] bool moving() const;
    void setTarget(double target);
    /// To `value` at once, and at rest there.
    Q_INVOKABLE void jump(double value);

    void classBegin() override { isComplete_ = false; }
    void componentComplete() override;

Q_SIGNALS:
    void targetChanged();
    void valueChanged();
    void movingChanged();

private:
    class Ticks;
    void rest();
    void tick(double seconds);
    [[nodiscard]] DampedSpring::State stateAfter(double seconds) const;
    void setState(DampedSpring::State state);

    std::unique_ptr<Ticks> ticks_;
    ABSpringMotion motion_;
    double target_ = 0;
    /// As near as this is there: half a pixel for positions, far less for a scale or an opacity.
    double epsilon_ = 0.5;
    bool fades_ = false;
    bool isComplete_ = true;
    bool fading_ = false;
    DampedSpring::State start_{0, 0};
    DampedSpring::State state_{0, 0};
};

} // namespace ambrel

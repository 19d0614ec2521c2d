import QtQuick
import Ambrel.DesignSystem
import Ambrel.UI

/// The first steps, one screen at a time.
FocusScope {
    id: root

    required property OnboardingSteps steps

    focus: true
    LayoutMirroring.enabled: Application.layoutDirection === Qt.RightToLeft
    LayoutMirroring.childrenInherit: true
    ABDynamicType.maximum: 1
    Keys.onEscapePressed: steps.setUpLater()

    WindowDrag {}

    Crossfade {
        anchors.fill: parent
        focus: true
        duration: 400
        sourceComponent: root.steps.state < OnboardingSteps.Demo ? welcome : demo
    }

    Component {
        id: welcome

        WelcomeState {
            steps: root.steps
        }
    }
    Component {
        id: demo

        DemoState {
            steps: root.steps
        }
    }
}

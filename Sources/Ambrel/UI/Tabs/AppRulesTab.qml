import QtQuick
import Ambrel.DesignSystem
import Ambrel.UI

/// The default rule and the rules of single applications: a list, and beside it the one that is selected.
Item {
    id: root

    required property RulesModel rules
    required property ApplicationChooser chooser
    /// The row that is selected at first.
    property string selected: rules.defaultRow

    Component.onCompleted: rules.open(selected)

    RulesList {
        id: list

        width: 220
        height: parent.height
        anchors.left: parent.left
        rules: root.rules
        onAddApp: picker.open()
    }
    ABDivider {
        id: edge

        upright: true
        height: parent.height
        anchors.left: list.right
    }
    Crossfade {
        anchors {
            left: edge.right
            right: parent.right
            top: parent.top
            bottom: parent.bottom
        }
        identity: root.rules.selection
        sourceComponent: detail
    }

    Component {
        id: detail

        RuleDetail {
            rules: root.rules
            onReset: resetting.open()
            onRemove: name => {
                removal.name = name;
                removal.open();
            }
        }
    }

    ABAlert {
        id: resetting

        title: qsTr("Reset this rule to default values?")
        confirmText: qsTr("Reset")
        onConfirmed: root.rules.resetToDefaults()
    }
    ABAlert {
        id: removal

        property string name: ""

        title: qsTr("Remove this rule?")
        message: qsTr("%1 will use the default rule again.").arg(name)
        confirmText: qsTr("Remove")
        destructive: true
        onConfirmed: root.rules.removeRule()
    }
    ApplicationPicker {
        id: picker

        chooser: root.chooser
        onPicked: identifier => root.rules.addApp(identifier)
    }
}

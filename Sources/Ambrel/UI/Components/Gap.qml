import QtQuick
import QtQuick.Layouts

/// Room between two things in a column; less of it where the column is too short.
Item {
    required property int points

    Layout.fillHeight: true
    Layout.minimumHeight: Math.min(points, 4)
    Layout.preferredHeight: points
    Layout.maximumHeight: points
}

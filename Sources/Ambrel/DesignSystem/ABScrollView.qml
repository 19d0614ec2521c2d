import QtQuick
import QtQuick.Templates as T
import Ambrel.DesignSystem

/// Scrolls up and down what is put into it, one item that gets its width, and keeps what has the keyboard in sight.
Flickable {
    id: root

    default property alias content: holder.data

    clip: true
    boundsBehavior: Flickable.StopAtBounds
    contentWidth: width
    contentHeight: holder.height
    Accessible.role: Accessible.Pane

    readonly property Item focused: Window.activeFocusItem

    onFocusedChanged: if (focused !== null && holds(focused)) reveal(focused)

    function holds(item: Item): bool {
        for (let ancestor = item.parent; ancestor !== null; ancestor = ancestor.parent) {
            if (ancestor === holder)
                return true;
        }
        return false;
    }

    function reveal(item: Item) {
        const margin = 8;
        const top = item.mapToItem(holder, 0, 0).y;
        const lowest = Math.max(0, contentHeight - height);
        if (top - margin < contentY)
            contentY = Math.max(0, top - margin);
        else if (top + item.height + margin > contentY + height)
            contentY = Math.min(lowest, top + item.height + margin - height);
    }

    Item {
        id: holder

        width: root.width
        height: childrenRect.height
    }

    T.ScrollBar.vertical: ABScrollBar {}
}

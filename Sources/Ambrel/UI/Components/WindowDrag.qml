import QtQuick

/// Lets a window be moved by its background.
DragHandler {
    target: null
    grabPermissions: PointerHandler.TakeOverForbidden
    onActiveChanged: if (active)
        parent.Window.window.startSystemMove()
}

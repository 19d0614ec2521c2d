import QtQuick

/// The application's icon.
Image {
    property int size: 48

    width: size
    height: size
    sourceSize.width: size
    sourceSize.height: size
    source: "qrc:/ambrel/icon/app.ambrel.Ambrel.svg"
    Accessible.ignored: true
}

import QtQuick

// How fast a player runs, while that is not the usual speed.
Badge {
    property QtObject player

    text: player.rate === 0 || player.rate === 1 ? "" : (player.rate < 0 ? "−" : "") + Math.abs(player.rate) + "×"
    Accessible.role: Accessible.StaticText
    Accessible.name: text ? "Speed " + text : ""
}

#pragma once

namespace pelorin {

/// Numbers of the messages that windows of the program post to each other.
enum MessageNumber : int {
    WM_COMMAND = 273, ///< to the main window; wParam is the command's identifier
    WM_USER = 1024,
    WM_LINK_REPLY = WM_USER + 10,   ///< a request has been performed; wParam 1 or 0
    WM_STATUS_TEXT = WM_USER + 12,  ///< wParam is the address of the sender's status text
    WM_LINK_STATE = WM_USER + 13,   ///< wParam is the light: 1 green, -1 gray, else red
    WM_LINK_FRAMES = WM_USER + 14,  ///< positions of the followed stream can be taken
    WM_DISPLAY_UNIT = WM_USER + 50, ///< a request to the display unit has been performed
    WM_LINK_LOST = WM_USER + 99     ///< the sensor's port has failed
};

} // namespace pelorin

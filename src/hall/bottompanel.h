// The controls of the status bar: the month's title and the two spin pictures. No behaviour.
#pragma once

class PictureButton;
class SSPanel;

struct BottomPanel
{
    SSPanel* panelBottom = nullptr;
    PictureButton* imgLeftSpin = nullptr; // children of panelBottom
    PictureButton* imgRightSpin = nullptr;
};

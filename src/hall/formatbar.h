// The controls of the format bar. No behaviour.
#pragma once

class ORLCombo;
class Toolbar;

struct FormatBar
{
    Toolbar* tbTop = nullptr;
    ORLCombo* orlcmbFontcolor = nullptr; // children of tbTop
    ORLCombo* orlcmbFontsize = nullptr;
    ORLCombo* orlcmbFontname = nullptr;
};

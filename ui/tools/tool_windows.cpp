#include "ui/tools/tool_windows.h"

#include "ui/tools/calculator.h"
#include "ui/tools/clipboard.h"
#include "ui/tools/coils.h"
#include "ui/tools/decibel.h"
#include "ui/tools/filters.h"
#include "ui/tools/lines.h"
#include "ui/tools/mixed.h"
#include "ui/tools/two_ports.h"

namespace kelvro {

namespace {

template <typename Window>
ToolWindow* Create(QWidget* parent) {
    return new Window(parent);
}

}  // namespace

const std::vector<ToolEntry>& ToolWindows() {
    static const std::vector<ToolEntry> tools{
        {"Zwischenablage1", "TFormClipboard", Create<TFormClipboard>},
        {"Taschenrechner1", "TFormCalculator", Create<TFormCalculator>},
        {"Spulen1", "TFormCoils", Create<TFormCoils>},
        {"Leitungsparameter1", "TFormLines", Create<TFormLines>},
        {"LCFilter1", "TFormFilters", Create<TFormFilters>},
        {"GemischteKreise1", "TFormMixed", Create<TFormMixed>},
        {"Dezibelrechnung1", "TFormDecibel", Create<TFormDecibel>},
        {"Zweitore1", "TFormTwoPorts", Create<TFormTwoPorts>},
    };
    return tools;
}

}  // namespace kelvro

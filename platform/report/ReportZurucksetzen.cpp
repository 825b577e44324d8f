#include "platform/report/ReportZurucksetzen.h"

namespace report {

namespace {

constexpr int LastIndex = 100;

} // namespace

void ReportZurucksetzen(PrintControl& control)
{
    control.setReportFileName({});
    control.setSelectionFormula({});
    control.setPrinterName({});
    control.setPrinterDriver({});
    control.setPrinterPort({});
    for (int index = 0; index <= LastIndex; ++index) {
        control.setFormulas(index, {});
        control.setDataFiles(index, {});
        control.setSortFields(index, {});
    }
}

} // namespace report

#pragma once

#include "platform/report/Element.h"
#include "platform/report/Form.h"
#include "platform/report/FormNames.h"

namespace report {

/// Reads the bands of a form: texts, lines and boxes.
class BandReader {
public:
    /// `width`: millimetres between the margins; `size`: points, of texts that do not say theirs.
    BandReader(const Form& form, double width, double size) : m_names(form), m_width(width), m_size(size) {}

    Band read(Element& element, TotalsAllowed totals) const;

    /// The attribute "size". \throws jet::Error InvalidArgument when it is no size of a font.
    static double fontSize(Element& element, double otherwise);

private:
    Text text(Element& element, TotalsAllowed totals) const;
    Box line(Element& element, TotalsAllowed totals) const;
    Box box(Element& element, TotalsAllowed totals) const;
    Condition show(Element& element, TotalsAllowed totals) const;
    void checkWidth(const Element& element, double right) const;

    FormNames m_names;
    double m_width;
    double m_size;
};

} // namespace report

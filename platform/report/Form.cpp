#include "platform/report/Form.h"

#include <QPageSize>

namespace report {

namespace {

void collect(Bands& bands, std::vector<Reference*>& into)
{
    for (Band& band : bands) {
        report::collect(band.show, into);
        for (Box& box : band.boxes)
            report::collect(box.show, into);
        for (Text& text : band.texts) {
            report::collect(text.show, into);
            report::collect(text.text, into);
        }
    }
}

} // namespace

bool Text::isNumber() const
{
    return format.contains(u'0') || format.contains(u'#');
}

QSizeF Form::paperSize() const
{
    const QSizeF size = QPageSize(paper).size(QPageSize::Millimeter);
    return orientation == QPageLayout::Landscape ? size.transposed() : size;
}

std::vector<Reference*> bandReferences(Form& form)
{
    std::vector<Reference*> references;
    for (Bands* const bands :
         {&form.reportHeader, &form.pageHeader, &form.detail, &form.pageFooter, &form.reportFooter})
        collect(*bands, references);
    for (Group& group : form.groups) {
        report::collect(group.by, references);
        collect(group.header, references);
        collect(group.footer, references);
    }
    return references;
}

} // namespace report

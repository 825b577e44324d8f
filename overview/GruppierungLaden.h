#pragma once

class ComboBox;

/// What a print can be grouped by, on the journal's tab or the stock list's, where a day or a kind of booking
/// is no longer to be told. The chosen text stays as far as the tab offers it.
void GruppierungLaden(ComboBox& liste, bool journal);

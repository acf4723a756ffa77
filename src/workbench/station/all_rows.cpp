#include "workbench/station/all_rows.h"

namespace torvane {

void ShowAllRowsFields(DesignState& s, bool shown) {
  for (FieldArray* column :
       {&s.txtWA, &s.txtLeft, &s.txtRight, &s.cmbSpeed, &s.cmbMethod, &s.txtAddRevs, &s.txtMRPM})
    (*column)(IndexSet::kAllRows).Show(shown);
  for (FieldArray* column : {&s.cmb3D, &s.chkPause}) (*column)(IndexSet::kAllRows).Show(false);
}

void KeepAllRows(Station& station) {
  if (station.allRowsShown) ShowAllRowsFields(station.s, true);
}

}  // namespace torvane

#pragma once

#include <string>
#include <utility>
#include <vector>

// What the benchmarks type at the screens, beside what tells one patient or visit from the next.

namespace bench {

using Fields = std::vector<std::pair<std::string, std::string>>;

/// A private patient, at frmPatientsNew.
inline const Fields patient = {{"cboPat", "(PRIVATE) [0001]"},
                               {"cboNew", "NEW"},
                               {"cboTitle", "MRS"},
                               {"txtfirstNAme", "ADA NGOZI"},
                               {"txtSex", "FEMALE"},
                               {"cboCard", "SINGLE"},
                               {"cboMat", "ADULT"},
                               {"cboArea", "IKEJA"},
                               {"txtPhone", "08031234567"},
                               {"txtKin", "TUNDE"},
                               {"txtNOKPhone", "08021234567"},
                               {"dtDate", "1990-05-01"},
                               {"dtExpDate", "2099-12-31"}};

/// A set of vital signs, at frmPreConsult.
inline const Fields readings = {{"txtTemp", "36.8"}, {"txtPressure", "120"}, {"txtPressure2", "80"}, {"txtPause", "72"},
                                {"txtResp", "18"},   {"txtHt", "1.68"},      {"txtWt", "64.5"},      {"txtSPO2", "98"}};

}  // namespace bench

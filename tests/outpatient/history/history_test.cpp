#include "tests/outpatient/history/history.h"

#include <filesystem>
#include <fstream>

#include "core/session/session.h"
#include "tests/support/picture.h"

using namespace db::literals;

namespace test {
namespace {

// -- the list of patients --

class PatList : public PlainScreen {
protected:
    PatList() : PlainScreen("frmPatList", &outpatient::provideScreens, &arrangeHistory) {
        hospital.execute("insert into hAdmission (PNo, consultID, admdate) values ('P2', 'C9', '20-Nov-2026')"_sql);
        session().gCurConsultPNo.clear();
    }
    std::string ticks() {
        std::string all;
        for (const auto* box : {"chkToday", "chkAll", "chkAdmit"}) all += is(box, "checked") ? "x" : "-";
        return all;
    }
};

TEST_F(PatList, OneTickAtATimeListsItsPatients) {
    EXPECT_EQ(entries("cboVehNo"), "");
    set("chkAll", true);
    EXPECT_EQ(entries("cboVehNo"), "Obi Ada [P1]|");
    EXPECT_TRUE(ran("SELECT distinct fullname,pNo FROM qryhConsultedPatients  order by fullname"));
    set("cboVehNo", "Obi Ada [P1]");
    set("chkAdmit", true);
    EXPECT_EQ(ticks() + entries("cboVehNo") + shown({"cboVehNo"}), "--xBello Musa [P2]|") << "and the pick has gone";
    set("chkToday", true);
    EXPECT_EQ(ticks() + entries("cboVehNo"), "x--");
    set("chkToday", false);
    EXPECT_EQ(ticks(), "---");
    sent();
}

TEST(PatListInFiles, AnArchiveAddsThoseWhoWereConsultedLongAgo) {
    const HospitalFiles files;
    Ward hospital(files);
    hospital.start();
    outpatient::provideScreens(hospital.place);
    arrangeHistory(hospital);
    hospital.execute("insert into hConsulting (ID, PNo) values (4, 'P2')"_sql, "HospitalArchive");
    hospital.place.session.gHospitalArchiveExists = "YES";
    hospital.place.desktop.show("frmPatList");
    hospital.place.desktop.set("frmPatList.chkAll", true, false);
    EXPECT_TRUE(hospital.ran("SELECT distinct fullname,pNo FROM qryhConsultedPatientsArchiveUnion  order by fullname"));
    EXPECT_EQ(hospital.place.desktop.get("frmPatList.cboVehNo")["items"].size(), 2U);
}

TEST_F(PatList, APatientIsChosenOrMeantByTheBeginningOfTheName) {
    const auto* const nobody = "Invalid Patient No! Please Select Patient Name";
    set("chkAll", true);
    for (const auto* command : {"OKButton", "cmdAdmHist"}) {
        hospital.expectMessage(nobody);
        fire(command);
        EXPECT_EQ(hospital.boxes().back().icon, ui::Icon::stop);
        EXPECT_EQ(focus(), "frmPatList.cboVehNo");
    }
    set("cboVehNo", "da");  // in the name, but not its beginning
    EXPECT_EQ(shown({"cboVehNo"}), "DA");
    fire("OKButton", {nobody});
    set("cboVehNo", "ob");
    fire("OKButton");
    EXPECT_EQ(session().gCurConsultPNo + session().gCurConsultName, "P1Obi Ada");
    EXPECT_TRUE(place.desktop.loaded("frmConsultInfo") != nullptr);
    EXPECT_FALSE(place.desktop.loaded("frmConsultInfo")->modal());
}

TEST_F(PatList, WhatAModalListOpensIsModalToo) {
    place.desktop.hide(name);
    hospital.then([&] {
        set("chkAll", true);
        set("cboVehNo", "Obi Ada [P1]");
        hospital.then([&] {
            EXPECT_TRUE(place.desktop.loaded("frmConsultInfo")->modal());
            place.desktop.unload("frmConsultInfo");
        });
        fire("OKButton");
        hospital.then([&] {
            EXPECT_TRUE(place.desktop.loaded("frmSuperPicture")->modal());
            EXPECT_EQ(session().gPictureCaller, "frmPatList");
            place.desktop.unload("frmSuperPicture");
        });
        fire("cmdView");
        place.desktop.unload(name);
    });
    place.desktop.showModal(name);
}

// -- the history of one --

class ConsultInfo : public PlainScreen {
protected:
    ConsultInfo() : PlainScreen("frmConsultInfo", &outpatient::provideScreens, &arrangeHistory) {}
    void pick(int row) { set("LstDate", {{"row", row}}); }
    static constexpr int withAllSheets = 1;
    static constexpr int first = 2;
};

TEST_F(ConsultInfo, TheLatestShowFirstAndAllOnDemand) {
    EXPECT_EQ(entries("LstDate"), "24-Nov-2026 @08:40:00 [C3]|22-Nov-2026 @10:00:00 [C2]|20-Nov-2026 @09:00:00 [C1]|");
    EXPECT_EQ(shown({"Label9"}), "3 Consultations");
    for (const auto& [value, top] : {std::pair{"20", "10"}, {"3", "2"}, {"5", "2"}, {"2", "1"}}) {
        session().gSearchValue = value;
        open();
        EXPECT_TRUE(
            ran(std::string("select  top ") + top +
                "  ID,fullname,cDate,cTime,consultID from qryhPrescriptionInfoList where pNo='P1' order by ID desc"))
            << value;
    }
    EXPECT_EQ(shown({"Label9"}), "1 Consultations");
    fire("cmdAll");
    EXPECT_TRUE(
        ran("select ID,fullname,cDate,cTime,consultID from qryhPrescriptionInfoList where pNo='P1' order by ID desc"));
    EXPECT_EQ(shown({"Label9"}), "3 Consultations");
    sent();
    session().gCurConsultPNo = "P2";
    place.desktop.show(name);
    EXPECT_EQ(entries("LstDate") + shown({"Label9", "lblName"}), "0 Consultation|") << "another patient, opened again";
}

TEST_F(ConsultInfo, AConsultationShowsItsSheetsAndThoseOfTheLastAreGone) {
    pick(first);
    EXPECT_EQ(shown({"lblName", "lblNo", "lblCon", "lblDisplay", "lblDoc", "lblClient", "lblCoy"}),
              "Obi Ada|P1|C1|20-Nov-2026|Ojo Tunde|HMO|Axa Mansard");
    EXPECT_EQ(shown({"txtDiag", "txtDiff", "txtComp", "txtPresc", "txtSugar", "txtHB"}),
              "MALARIA|TYPHOID|FEVER|PCM\r\nIV\r\nX-RAY\r\n|NIL|11");
    EXPECT_EQ(shown({"txtRem"}),
              "Date: 20-Nov-2026 : 08:30:00\r\nT = 38deg C\r\nB.P. = 120/80mm Hg\r\nPulse = 90/min\r\nWeight = 60Kg\r\n"
              "Height = 1.7m\r\nRespRatio = 18/min\r\nUrine Alb = NIL\r\nUrine Sugar = NIL\r\nDone by = Audu Zainab\r\n"
              "-----------------------------------\r\n");
    pick(withAllSheets);
    EXPECT_EQ(shown({"txtDiag", "txtRem", "txtVisualAcuity", "txtdtype", "txtAULI1", "txtGoals", "txtoperation"}),
              "APPENDICITIS||6/6|ADULT|CARIES|WALK|APPENDICECTOMY");
    EXPECT_EQ(place.desktop.get(name + ".dtRevw")["date"].get<std::string>() +
                  place.desktop.get(name + ".dtApptDate")["date"].get<std::string>(),
              "2026-11-252026-11-26");
    EXPECT_EQ(shown({"txtHB", "txtPCV", "txtSugar"}), "9||POSITIVE") << "the operation's, in the fields of both sheets";
    EXPECT_EQ(list({"sympitem", "result"}, "grdDataLab"), "FBC|WBC 15\n");
    pick(first);
    EXPECT_EQ(shown({"txtHB", "txtSugar", "txtVisualAcuity", "txtAULI1", "txtoperation"}), "11|NIL|||");
    EXPECT_TRUE(place.desktop.get(name + ".dtRevw")["date"].is_null());
    sent();
}

TEST_F(ConsultInfo, TheLastResultIsTheDoctorsOfTheVisit) {
    hospital.execute(
        "insert into hLabRequests (LabNo, invDate, PNo, consultID, conID) values ('L1', '22-Nov-2026', 'P1', "
        "'C2', 2), ('L2', '23-Nov-2026', 'P1', 'C2', 2), ('L3', '24-Nov-2026', 'P1', 'C2', 1)"_sql);
    hospital.execute(
        "insert into hLabResults (LabNo, investigate, invResult) values ('L1', 'FBC', 'OLDER'), ('L2', 'FBC', "
        "'WBC 15'), ('L3', 'FBC', 'ANOTHER DOCTOR')"_sql);
    pick(withAllSheets);
    EXPECT_EQ(shown({"txtLabResult"}),
              "Lab Result Date: 23-Nov-2026 [C2]\r\nWBC 15\r\n--------------------------------------------");
    pick(first);
    EXPECT_EQ(shown({"txtLabResult"}), "");
}

TEST_F(ConsultInfo, OnlyTheFrontDeskIsRefusedTheDiagnosis) {
    session().gModuleRole = "RECORDS";
    pick(first);
    EXPECT_EQ(shown({"txtDiag", "txtDiff", "txtComp"}), "View Not Allowed|View Not Allowed|FEVER");
}

TEST_F(ConsultInfo, TheArchiveIsAnotherDatabaseAndMayBeMissing) {
    fire("cmdArchive");
    EXPECT_EQ(entries("LstDate"), "02-Jan-2019 @09:00:00 [C0]|");
    pick(0);
    EXPECT_EQ(shown({"txtDiag", "lblDisplay"}), "OLD|02-Jan-2019");
    for (const auto& statement : hospital.log())
        EXPECT_EQ(statement.database == "Hospital", statement.text.find("hinvestigate") != std::string::npos)
            << statement.text;
    // Edit goes back to the hospital, with the row's own number.
    hospital.forget();
    fire("cmdEdit", {"Cannot Edit Another Doctor's Consultation Details! Viewing is Allowed"});
    EXPECT_FALSE(session().gConsultHistoryArchive);
    EXPECT_EQ(shown({"txtDiag"}), "REVIEW");
    session().gConnArchive = "Driver={SQL Server};Server=S;Database=Nowhere";
    hospital.setTakesMessages(true);
    fire("cmdArchive");
    EXPECT_EQ(hospital.boxes().back().text.find("Cannot Edit"), std::string::npos);
}

TEST_F(ConsultInfo, NobodyEditsHere) {
    fire("cmdEdit", {"Select a Value in the Box to Edit"});
    pick(first);
    fire("LstDate.DblClick", {"Cannot Edit Another Doctor's Consultation Details! Viewing is Allowed"});
    session().gEmpID = "D1";
    fire("cmdEdit");
    EXPECT_FALSE(is("OKButton", "visible") || is("cmdCancel", "visible"));
    EXPECT_FALSE(is("txtDiag", "enabled"));
    set("LstDate", {{"row", 0}});
    fire("cmdANC", {"This page is not there yet: Ante Natal Reg"});
    EXPECT_EQ(session().gCurPNo + session().gCurPatientName, "P1Obi Ada");
    session().gCurConsultPNo = "P2";
    place.desktop.show(name);
    fire("cmdANC", {"Patient System No Required! Please select a Patient"});
}

TEST_F(ConsultInfo, AnImageShowsWhereItIsOne) {
    const auto imageOf = [&] { return as<ui::Screen>().find("imgPix")->property("image"); };
    EXPECT_EQ(entries("lstDate2"), "22-Nov-2026 [10:05:00]|22-Nov-2026 [10:05:00]|");
    set("lstDate2", {{"row", 0}});
    EXPECT_EQ(shown({"txtDesc"}), "CHEST");
    EXPECT_FALSE(imageOf().is_null());
    EXPECT_EQ(session().gPictureCaller, "frmConsultInfo");
    EXPECT_EQ(session().gPictureFile, (hospital.program.path() / "1.JPG").string());
    EXPECT_TRUE(std::filesystem::exists(session().gPictureFile));
    set("lstDate2", {{"row", 1}});
    EXPECT_TRUE(imageOf().is_null() && session().gPictureFile.empty()) << "its bytes are lost";
    hospital.execute("delete from hPix where SNo=2"_sql);
    set("lstDate2", {{"row", 1}});
    EXPECT_EQ(shown({"txtDesc"}), "");
    // What is no image, or far too large, is told and clears the picture.
    for (const auto& [bytes, says] :
         {std::pair{db::Bytes(100, std::byte{'x'}), "The file is not a JPG image"},
          {db::Bytes(50 * 1024 * 1024, std::byte{0xFF}), "The image is too large to be shown: more than 16 MB"}}) {
        db::Recordset row(place.hospital(), "Select Image,Remarks from hPix where SNo=1"_sql);
        row.set("Image", bytes);
        row.update();
        set("lstDate2", {{"row", 0}}, {says});
        EXPECT_TRUE(imageOf().is_null());
    }
    sent();
}

// -- the viewer --

class SuperPicture : public PlainScreen {
protected:
    SuperPicture() : PlainScreen("frmSuperPicture", &outpatient::provideScreens, &arrangeHistory) {}
    std::string zoom() { return std::to_string(place.desktop.get(name + ".SuperPic")["zoom"].get<int>()); }
    bool shows() { return !as<ui::Screen>().find("SuperPic")->property("image").is_null(); }
};

TEST_F(SuperPicture, TheZoomGoesInStepsWithinItsLimits) {
    fire("cmdIn");
    fire("cmdOut");
    fire("cmdOut");
    EXPECT_EQ(zoom() + entries("lstEvents"), "90ZoomChanged(110)|ZoomChanged(100)|ZoomChanged(90)|");
    for (int step = 0; step < 100; ++step) fire("cmdIn");
    EXPECT_EQ(zoom(), "1000");
    const auto told = entries("lstEvents");
    fire("cmdIn");
    EXPECT_EQ(entries("lstEvents"), told) << "at the limit nothing changes";
    for (int step = 0; step < 120; ++step) fire("cmdOut");
    EXPECT_EQ(zoom(), "10");
    set("SuperPic", {{"zoom", 250}});
    EXPECT_EQ(zoom(), "250");
    for (const auto& wrong : std::initializer_list<nlohmann::json>{{{"zoom", 255}},
                                                                   {{"zoom", 0}},
                                                                   {{"zoom", 1010}},
                                                                   {{"zoom", "100"}},
                                                                   {{"zoom", 1e300}},
                                                                   100,
                                                                   nullptr,
                                                                   {{"row", 1}}})
        EXPECT_THROW(set("SuperPic", wrong), ui::Refused) << wrong;
}

TEST_F(SuperPicture, ItShowsThePickedImageOrOneFromDisk) {
    EXPECT_EQ(shown({"lblHint"}), "Double-Click inside to load an image from Disk");
    const auto file = hospital.program.path() / "mine.jpg";
    for (const auto& [content, says] :
         {std::pair{std::string("no image"), "The file is not a JPG image"}, {jpeg(8, 8), ""}}) {
        std::ofstream(file, std::ios::binary) << content;
        hospital.answer({{"file", file.string()}});
        if (*says) expect({says});
        fire("SuperPic.DblClick");
        EXPECT_EQ(shows(), *says == '\0');
    }
    hospital.answer("cancel");
    fire("SuperPic.DblClick");
    EXPECT_TRUE(shows());
    session().gPictureCaller = "frmConsultInfo";
    session().gPictureFile = (hospital.program.path() / "none.JPG").string();
    expect({"No such file or directory"});
    place.desktop.show(name);
    EXPECT_FALSE(shows()) << "neither the missing one nor the one before";
    session().gPictureFile = file.string();
    place.desktop.show(name);
    EXPECT_TRUE(shows());
    EXPECT_EQ(shown({"lblHint"}) + entries("lstEvents"), "");
    fire("SuperPic.DblClick");  // the patient's own image stays
    EXPECT_EQ(entries("lstEvents"), "DblClick()|");
    fire("cmdPrint");
    EXPECT_EQ(hospital.events().back(), nlohmann::json({{"print", "frmSuperPicture"}}));
    set("chkPanMode", true);
    set("chkUseQuickBar", true);
    const auto state = place.desktop.get(name + ".SuperPic");
    EXPECT_TRUE(state["panning"].get<bool>() && state["quickBar"].get<bool>());
}

}  // namespace
}  // namespace test

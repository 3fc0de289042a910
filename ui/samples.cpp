#include "ui/samples.h"

#include <array>
#include <string>
#include <string_view>

#include "db/error.h"
#include "db/recordset.h"
#include "db/rowbuffer.h"
#include "ui/checklist.h"
#include "ui/controls.h"
#include "ui/desktop.h"

namespace ui {

namespace {

/// A JPEG of sixteen pixels a side: a head and shoulders.
constexpr std::string_view photoHex =
    "ffd8ffe000104a46494600010100000100010000ffdb004300281c1e231e19282321232d2b28303c64413c37373c7b585d4964918099968f"
    "808c8aa0b4e6c3a0aadaad8a8cc8ffcbdaeef5ffffff9bc1fffffffaffe6fdfff8ffdb0043012b2d2d3c353c76414176f8a58ca5f8f8f8f8"
    "f8f8f8f8f8f8f8f8f8f8f8f8f8f8f8f8f8f8f8f8f8f8f8f8f8f8f8f8f8f8f8f8f8f8f8f8f8f8f8f8f8f8f8f8f8f8ffc00011080010001003"
    "012200021101031101ffc4001500010100000000000000000000000000000003ffc4001b1000020203010000000000000000000000010300"
    "1102041261ffc40014010100000000000000000000000000000000ffc40014110100000000000000000000000000000000ffda000c030100"
    "02110311003f00b2161ace49a1570f58533906c55caeb20643bc89f28c6ca0623bc49f6cc0ffd9";

db::Bytes photo() {
    db::Bytes bytes;
    for (std::size_t at = 0; at + 1 < photoHex.size(); at += 2) {
        const std::string digits(photoHex.substr(at, 2));
        bytes.push_back(static_cast<db::Bytes::value_type>(std::stoi(digits, nullptr, 16)));
    }
    return bytes;
}

/// Rows enough for three pages, with numbers and dates that sort otherwise than as texts; whoever arrived since stands
/// on top.
db::Recordset patients(int arrivals = 0) {
    using Reading = db::RowBuffer::Reading;
    static constexpr std::array<const char*, 6> names = {"Ada Obi",   "Musa Bello",  "Ngozi Eze",
                                                         "Tunde Ojo", "Zainab Audu", "Chidi Nwosu"};
    db::RowBuffer rows;
    for (const char* column : {"PNo", "Name", "Age", "Seen", "consultID"})
        rows.addColumn(column, std::string_view(column) == "Seen" ? Reading::date : Reading::plain);
    for (int place = 0; place < 25 + arrivals; ++place) {
        const int row = place < arrivals ? 24 + arrivals - place : place - arrivals;
        const std::string number = std::to_string(row + 1);
        rows.addText("P" + std::string(3 - number.size(), '0') + number);
        rows.addText(names.at(static_cast<std::size_t>(row) % names.size()));
        rows.addInteger((row * 37) % 100);
        rows.addText("2026-" + std::string(row % 2 == 0 ? "11" : "02") + "-" + std::to_string(10 + row % 18));
        rows.addText("C" + number);
    }
    return db::Recordset(std::move(rows));
}

/// A short price list.
db::Recordset prices(const std::array<std::string, 3>& amounts) {
    static constexpr std::array<const char*, 3> items = {"Dressing", "Injection", "Ward fee"};
    db::RowBuffer rows;
    for (const char* column : {"Item", "Price"}) rows.addColumn(column, db::RowBuffer::Reading::plain);
    for (std::size_t row = 0; row < items.size(); ++row) {
        rows.addText(items.at(row));
        rows.addText(amounts.at(row));
    }
    return db::Recordset(std::move(rows));
}

/// More names than a page is sent at once: "ADEBAYO ADA [0001]" and so on.
constexpr int namesInAll = 1000;
std::string longListEntry(int number) {
    static constexpr std::array<const char*, 10> surnames = {"ADEBAYO", "BELLO", "CHUKWU", "DANJUMA", "EZE",
                                                             "FASHOLA", "GARBA", "IBEKWE", "LAWAL",   "OKAFOR"};
    static constexpr std::array<const char*, 10> firstNames = {"ADA",    "BOLA", "CHIDI", "EFE",   "FUNKE",
                                                               "HALIMA", "MUSA", "NGOZI", "TUNDE", "ZAINAB"};
    const auto at = static_cast<std::size_t>(number);
    const std::string digits = std::to_string(number + 1);
    return std::string(surnames.at(at / 100)) + " " + firstNames.at(at / 10 % 10) + " [" +
           std::string(4 - digits.size(), '0') + digits + "]";
}

/// What a modal screen is.
class frmSampleModal : public Screen {
public:
    explicit frmSampleModal(Desktop& desktop) : Screen(desktop, "frmSampleModal", "A modal sample") {}

    TextBox txtReason{*this, "txtReason"};
    Button OKButton{*this, "OKButton", "OK", [this] { hide(); }};
    Button cmdCancel{*this, "cmdCancel", "Cancel", [this] { close(); }};
};

class frmSamples : public Screen {
public:
    explicit frmSamples(Desktop& desktop);
    void load() override;
    bool queryUnload() override;

private:
    void says(const std::string& text) { lblSays.setCaption(text); }
    void fillChoices();
    void fillLists();
    void fillTrend();
    void checkSigns();
    void bindTexts();
    void bindChoices();
    void bindLists();
    void ask();
    void askText();
    void pickFile();
    void writePrice();
    void showModal();
    void report();

    Label lblName{*this, "lblName", "&Name"};
    TextBox txtName{*this, "txtName"};
    TextBox txtTemp{*this, "txtTemp", decimalOnly};
    TextBox txtPulse{*this, "txtPulse", digitsOnly};
    TextBox txtCode{*this, "txtCode", upperCase};
    TextBox txtPassword{*this, "txtPassword"};
    TextBox txtLocked{*this, "txtLocked"};
    TextBox txtNote{*this, "txtNote"};
    ComboBox cboDrug{*this, "cboDrug"};
    ComboBox cboWard{*this, "cboWard", ComboBox::Style::listOnly};
    ComboBox cboPatient{*this, "cboPatient", ComboBox::Style::listOnly};
    DatePicker dtVisit{*this, "dtVisit"};
    DatePicker dtTime{*this, "dtTime", DatePicker::Format::time};
    CheckBox chkFasting{*this, "chkFasting", "&Fasting"};
    OptionButton optMale{*this, "optMale", "&Male", "sex"};
    OptionButton optFemale{*this, "optFemale", "F&emale", "sex"};
    std::array<CheckBox, 3> chkDay{CheckBox{*this, "chkDay(1)", "Monday"}, CheckBox{*this, "chkDay(2)", "Tuesday"},
                                   CheckBox{*this, "chkDay(3)", "Wednesday"}};
    TabStrip tabPages{*this, "tabPages", {"&Grid", "&Lists", "&Order", "T&rend"}};
    DataGrid grdData{*this, "grdData"};
    ListBox lstBeds{*this, "lstBeds"};
    ListBox lstNames{*this, "lstNames"};
    TreeView treeUnits{*this, "treeUnits"};
    Button cmdArrival{*this, "cmdArrival", "A patient arrives", [this] { grdData.bind(patients(++arrivals_)); }};
    CheckList lstSigns{*this, "lstSigns"};
    ListView lvwTests{*this, "lvwTests", {"Test", "Result"}, true};
    TextBox txtPrice{*this, "txtPrice", decimalOnly};
    FlexGrid OrderGrid{*this, "OrderGrid", {"Line", "Item", "Price"}};
    Button cmdAddLine{*this, "cmdAddLine", "&Add a line", [this] {
                          OrderGrid.addRow({std::to_string(OrderGrid.rowCount() + 1), txtName.text(), txtPrice.text()});
                      }};
    Button cmdRemoveLine{*this, "cmdRemoveLine", "Remove the line", [this] {
                             if (OrderGrid.row() >= 0) OrderGrid.removeRow(static_cast<std::size_t>(OrderGrid.row()));
                         }};
    DataGrid grdPrices{*this, "grdPrices"};
    LineChart chtTrend{*this, "chtTrend"};
    Picture picPhoto{*this, "picPhoto"};
    Picture picHolder{*this, "picHolder"};
    TextBox txtHeld{*this, "txtHeld"};
    CheckBox chkHold{*this, "chkHold", "Lock what the panel holds"};
    Label lblSays{*this, "lblSays"};
    Button OKButton{*this, "OKButton", "&OK",
                    [this] { desktop().message("You typed: " + txtName.text(), Icon::information); }};
    Button cmdAsk{*this, "cmdAsk", "As&k", [this] { ask(); }};
    Button cmdInput{*this, "cmdInput", "&Input", [this] { askText(); }};
    Button cmdFile{*this, "cmdFile", "File", [this] { pickFile(); }};
    Button cmdModal{*this, "cmdModal", "Modal screen", [this] { showModal(); }};
    TextBox txtScreen{*this, "txtScreen"};
    Button cmdShow{*this, "cmdShow", "Open a screen", [this] { desktop().show(txtScreen.text()); }};
    Button cmdFocus{*this, "cmdFocus", "Go to the order", [this] { desktop().focus(cmdAddLine); }};
    Button cmdRing{*this, "cmdRing", "Ring", [this] { desktop().sound("ring1.wav"); }};
    Button cmdReport{*this, "cmdReport", "Report", [this] { report(); }};
    Button cmdDelete{*this, "cmdDelete", "Fail", [] { throw db::Error(db::Category::other, "Nothing to delete"); }};
    Button cmdClose{*this, "cmdClose", "&Close", [this] { desktop().unload(name()); }};
    int arrivals_ = 0;
    std::array<std::string, 3> prices_{"1500", "750", "12000"};
};

frmSamples::frmSamples(Desktop& desktop) : Screen(desktop, "frmSamples", "Samples") {
    txtPulse.setMaxLength(3);
    txtPassword.setPassword(true);
    txtHeld.heldBy(picHolder);
    for (Control* control :
         {static_cast<Control*>(&lstBeds), static_cast<Control*>(&lstNames), static_cast<Control*>(&treeUnits),
          static_cast<Control*>(&lstSigns), static_cast<Control*>(&lvwTests)})
        control->onPage(tabPages, 1);
    grdData.onPage(tabPages, 0);
    cmdArrival.onPage(tabPages, 0);
    for (Control* control :
         {static_cast<Control*>(&txtPrice), static_cast<Control*>(&OrderGrid), static_cast<Control*>(&cmdAddLine),
          static_cast<Control*>(&cmdRemoveLine), static_cast<Control*>(&grdPrices)})
        control->onPage(tabPages, 2);
    chtTrend.onPage(tabPages, 3);
    picPhoto.onPage(tabPages, 3);
    bindTexts();
    bindChoices();
    bindLists();
}

void frmSamples::load() {
    txtLocked.setText("Nobody can change this");
    txtLocked.setEnabled(false);
    fillChoices();
    fillLists();
    fillTrend();
    picPhoto.setImage(photo());
}

bool frmSamples::queryUnload() {
    return desktop().askYesNo("Close the samples?", "Samples");
}

void frmSamples::fillChoices() {
    for (const char* drug :
         {"Amoxicillin 500 mg", "Artemether", "Ibuprofen 400 mg", "Paracetamol 500 mg", "Paracetamol syrup"})
        cboDrug.add(drug);
    for (const char* ward : {"Children", "Female", "Male", "Maternity"}) cboWard.add(ward);
    for (int number = 0; number < namesInAll; ++number) cboPatient.add(longListEntry(number));
}

void frmSamples::fillLists() {
    grdData.bind(patients());
    grdData.hideColumn("consultID");
    grdPrices.bind(prices(prices_));
    grdPrices.setEditable("Price");
    for (int bed = 1; bed <= 12; ++bed) lstBeds.add("Bed " + std::to_string(bed));
    for (int number = 0; number < namesInAll; ++number) lstNames.add(longListEntry(number));
    const int wards = treeUnits.add("Wards");
    const int male = treeUnits.add("Male", {}, wards);
    treeUnits.add("Room 1", {}, male);
    treeUnits.add("Female", {}, wards);
    treeUnits.add("Theatre");
    for (const char* sign : {"Rash", "Fever", "Swelling", "Vomiting", "Wheezing"}) lstSigns.add(sign);
    lvwTests.addRow({"Haemoglobin", "12.5"});
    lvwTests.addRow({"Malaria parasite", "none seen"});
}

void frmSamples::fillTrend() {
    chtTrend.setAxisTitles("Time", "Pressure (mmHg)");
    chtTrend.show("Blood pressure", {"06:00", "10:00", "14:00", "18:00"},
                  {{"Systolic", {120, 135, std::nullopt, 128}}, {"Diastolic", {80, 88, 84, 79}}});
}

void frmSamples::bindTexts() {
    txtName.on(Event::keyReturn, [this] { says("Name: " + txtName.text()); });
    txtName.on(Event::lostFocus, [this] { says("Left the name"); });
    txtCode.on(Event::gotFocus, [this] { says("Came to the code"); });
    txtTemp.on(Event::lostFocus, [this] {
        if (txtTemp.text().size() <= 4) return;
        desktop().message("The temperature is too long", Icon::warning);
        desktop().focus(txtTemp);
    });
    txtNote.on(Event::change, [this] { says("Note: " + std::to_string(txtNote.text().size())); });
}

void frmSamples::bindChoices() {
    cboDrug.on(Event::click, [this] { says("Drug: " + cboDrug.text()); });
    cboWard.on(Event::click, [this] { says("Ward: " + cboWard.text()); });
    cboPatient.on(Event::click, [this] { says("Chosen: " + cboPatient.text()); });
    dtVisit.on(Event::change, [this] { says(dtVisit.value() ? "Visit: " + dtVisit.value()->isoDate() : "No visit"); });
    chkFasting.on(Event::click, [this] { says(chkFasting.checked() ? "Fasting" : "Not fasting"); });
    optMale.on(Event::click, [this] { says("Male"); });
    optFemale.on(Event::click, [this] { says("Female"); });
    chkHold.on(Event::click, [this] { picHolder.setEnabled(!chkHold.checked()); });
}

void frmSamples::bindLists() {
    grdPrices.on(Event::cellEdit, [this] { writePrice(); });
    grdData.on(Event::rowChange, [this] { says("Patient: " + grdData.text("PNo")); });
    grdData.on(Event::dblClick, [this] { says("Opened: " + grdData.text("PNo") + " " + grdData.text("consultID")); });
    lstBeds.on(Event::click, [this] { says(lstBeds.text()); });
    lstNames.on(Event::click, [this] { says("Name: " + lstNames.text()); });
    lstBeds.on(Event::dblClick, [this] { says("Opened: " + lstBeds.text()); });
    treeUnits.on(Event::nodeClick,
                 [this] { says("Unit: " + treeUnits.nodes().at(static_cast<std::size_t>(treeUnits.index())).text); });
    lstSigns.on(Event::itemCheck, [this] { checkSigns(); });
    lstSigns.on(Event::click,
                [this] { says("Sign: " + lstSigns.items().at(static_cast<std::size_t>(lstSigns.index())).text); });
    lvwTests.on(Event::itemCheck, [this] {
        const auto row = static_cast<std::size_t>(lvwTests.row());
        says(lvwTests.cell(row, 0) + (lvwTests.checked(row) ? " checked" : " not checked"));
    });
    tabPages.on(Event::click, [this] { says("Page " + std::to_string(tabPages.page() + 1)); });
    picPhoto.on(Event::dblClick, [this] { says("Photo"); });
}

/// A screen may take a tick back.
void frmSamples::checkSigns() {
    if (lstSigns.checkedCount() > 4) {
        desktop().message("Four signs are enough", Icon::information);
        lstSigns.setChecked(lstSigns.index(), false);
    }
    std::string text;
    for (const ListItem& sign : lstSigns.checkedItems()) text += (text.empty() ? "" : ", ") + sign.text;
    says("Signs: " + text);
}

void frmSamples::ask() {
    says(desktop().askYesNo("Are you sure to save", "Check before save") ? "Saved" : "Not saved");
}

void frmSamples::askText() {
    const auto answer = desktop().askInput("How many hours?", "Hours", "24");
    says(answer ? "Hours: " + *answer : "No hours");
}

void frmSamples::pickFile() {
    const auto chosen = desktop().pickFile("Choose a picture");
    const auto file = chosen ? desktop().chosenFile(*chosen) : std::nullopt;
    says(file ? "File: " + file->extension().string() : "No file");
}

/// A cell's text is the screen's to judge and to keep.
void frmSamples::writePrice() {
    const auto price = db::parseNumber(grdPrices.edited().text);
    if (!price || *price < 0) return desktop().message("A price is a number", Icon::warning);
    const int row = grdPrices.row();
    says(grdPrices.text("Item") + " costs " + db::numberText(*price));
    prices_.at(static_cast<std::size_t>(row)) = db::numberText(*price);
    grdPrices.bind(prices(prices_), row + 1);
}

void frmSamples::showModal() {
    desktop().showModal("frmSampleModal");
    says("The modal screen is gone");
}

void frmSamples::report() {
    desktop().report({"rptSamples", "Sample patients", patients()});
}

}  // namespace

std::unique_ptr<Screen> makeSamples(Desktop& desktop) {
    if (!desktop.provides("frmSampleModal"))
        desktop.provide("frmSampleModal", [&desktop] { return std::make_unique<frmSampleModal>(desktop); });
    return std::make_unique<frmSamples>(desktop);
}

}  // namespace ui

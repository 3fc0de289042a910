#pragma once

#include <array>

#include "db/sql.h"

namespace billing {

/// In what the three screens of the templates differ.
struct TariffKind {
    const char* screen;
    const char* caption;
    const char* type;         ///< in the register of templates
    const char* table;        ///< of the prices
    db::Literal tableName;    ///< the same, for statements
    db::Literal items;        ///< reads all items of the hospital
    const char* itemColumn;   ///< of the list
    db::Literal list;         ///< reads a template, up to its key
    db::Literal order;        ///< from behind the key on
    db::Literal search;       ///< from behind the key to the start of an item's name
    db::Literal searchOrder;  ///< from behind that on
    const char* searchWithoutClient;
    const char* priceMissing;
    const char* bulkWord;  ///< in the questions before a template is built
    const char* addAudit;
    const char* editAudit;
    const char* repriceAudit;
    bool listsByCategory;  ///< it can show one category of items, and all clients at once
};

inline constexpr std::array tariffKinds = {
    TariffKind{.screen = "frmDrugPriceHMO",
               .caption = "Tariff for Drugs",
               .type = "DRUG",
               .table = "DrugNHIS",
               .tableName = "DrugNHIS",
               .items = "select distinct  *  from drugMaster",
               .itemColumn = "Drug",
               .list = "select distinct SNO,Drug,Category,Price,Capitated,TariffStatus,Company,PharmCat as "
                       "Remarks,CoyID from vwDrugNHIS WHERE CoyID ='",
               .order = "' order by drug",
               .search = "' and  drug like '",
               .searchOrder = "%' order by drug",
               .searchWithoutClient = "Specify Company Tariff before Search",
               .priceMissing = "Please Specify Drug Price ",
               .bulkWord = "Drug",
               .addAudit = "Add Drug Tariff for: ",
               .editAudit = "Edit Drug Price: ",
               .repriceAudit = "Tariff Drug Price Updated to: (",
               .listsByCategory = false},
    TariffKind{.screen = "frmLabPriceHMO",
               .caption = "Tariff for Investigations",
               .type = "LAB",
               .table = "LabServiceNHIS",
               .tableName = "LabServiceNHIS",
               .items = "select *  from LabServices",
               .itemColumn = "LabItem",
               .list = "select SNO,LabItem,Category,Price,Capitated,tariffStatus,Company,Remarks,CoyID from "
                       "vwLabServiceNHIS WHERE CoyID ='",
               .order = "' order by labItem",
               .search = "' and LabItem like '",
               .searchOrder = "%' order by labItem",
               .searchWithoutClient = "Specify Company Tariff before Search",
               .priceMissing = "Please LAB Price ",
               .bulkWord = "LAB",
               .addAudit = "Add Lab Tariff for: ",
               .editAudit = "Edit Lab Price: ",
               .repriceAudit = "Tariff Investigation Price Updated to: (",
               .listsByCategory = false},
    TariffKind{.screen = "frmServPriceHMO",
               .caption = "Tariff for Services",
               .type = "SERVICE",
               .table = "hServiceNHIS",
               .tableName = "hServiceNHIS",
               .items = "select *  from hServices",
               .itemColumn = "Service",
               .list = "select SNO,Service,Category,Price,Capitated,tariffStatus,Company,Remarks,CoyID from "
                       "vwServiceNHIS WHERE CoyID ='",
               .order = "' ORDER BY  service",
               .search = "' and Service like '",
               .searchOrder = "%' ORDER BY  service",
               .searchWithoutClient = "Please specify Tariff Company before Search",
               .priceMissing = "Please SERVICE Price ",
               .bulkWord = "SERVICE",
               .addAudit = "Add Service Tariff for: ",
               .editAudit = "Edit SERVICE Price: ",
               .repriceAudit = "Tariff SERVICEs Price Updated to: (",
               .listsByCategory = true},
};

}  // namespace billing

#include "hospital/demo/hospital.h"

namespace hospital::demo {

/// Common reasons of a general practice in the tropics, with the usual first treatment; doses are illustrations.
const std::vector<Illness>& illnesses() {
    static const std::vector<Illness> list = {
        {"Fever and headache for three days, body pains",
         "MALARIA",
         {"ARTEMETHER/LUMEFANTRINE TAB|4 TABS|2|3", "PARACETAMOL TAB 500MG|2 TABS|3|3"},
         {"MALARIA PARASITE", "FULL BLOOD COUNT"}},
        {"High fever, vomiting, cannot keep food down",
         "SEVERE MALARIA",
         {"ARTESUNATE INJ 60MG|120 MG|2|3", "PARACETAMOL TAB 500MG|2 TABS|3|3"},
         {"MALARIA PARASITE", "PACKED CELL VOLUME"},
         true},
        {"Fever for a week, abdominal pain, loss of appetite",
         "TYPHOID FEVER",
         {"CIPROFLOXACIN TAB 500MG|1 TAB|2|7", "PARACETAMOL TAB 500MG|2 TABS|3|5"},
         {"WIDAL", "FULL BLOOD COUNT"},
         true},
        {"Routine check of blood pressure, occasional headache",
         "HYPERTENSION",
         {"AMLODIPINE TAB 5MG|1 TAB|1|30", "LISINOPRIL TAB 10MG|1 TAB|1|30"},
         {"ELECTROLYTES, UREA AND CREATININE", "URINALYSIS"}},
        {"Severe headache and blurred vision, pressure very high",
         "HYPERTENSIVE CRISIS",
         {"AMLODIPINE TAB 5MG|2 TABS|1|30", "FUROSEMIDE INJ 20MG|40 MG|2|2"},
         {"ELECTROLYTES, UREA AND CREATININE", "URINALYSIS"},
         true},
        {"Passing much urine, thirst, weight loss",
         "DIABETES MELLITUS",
         {"METFORMIN TAB 500MG|1 TAB|2|30"},
         {"FASTING BLOOD SUGAR", "URINALYSIS"}},
        {"Cough with sputum and fever for four days",
         "PNEUMONIA",
         {"CEFTRIAXONE INJ 1G|1 G|1|5", "PARACETAMOL TAB 500MG|2 TABS|3|5"},
         {"FULL BLOOD COUNT", "SPUTUM AFB"},
         true},
        {"Catarrh, sore throat, mild cough",
         "UPPER RESPIRATORY TRACT INFECTION",
         {"AMOXICILLIN CAP 500MG|1 CAP|3|5", "PARACETAMOL TAB 500MG|2 TABS|3|3"},
         {}},
        {"Watery stools since yesterday, weak",
         "GASTROENTERITIS",
         {"ORAL REHYDRATION SALT|1 SACHET|3|3", "METRONIDAZOLE TAB 400MG|1 TAB|3|5"},
         {"STOOL MICROSCOPY"},
         true},
        {"Burning pain when passing urine",
         "URINARY TRACT INFECTION",
         {"CIPROFLOXACIN TAB 500MG|1 TAB|2|7"},
         {"URINALYSIS"}},
        {"Epigastric pain, worse at night",
         "PEPTIC ULCER DISEASE",
         {"OMEPRAZOLE CAP 20MG|1 CAP|2|14"},
         {"FULL BLOOD COUNT"}},
        {"Wheezing and difficulty in breathing",
         "BRONCHIAL ASTHMA",
         {"SALBUTAMOL INHALER|2 PUFFS|3|14", "PREDNISOLONE TAB 5MG|6 TABS|1|5"},
         {},
         true},
        {"Bone pains in both legs since the night, known SS",
         "SICKLE CELL CRISIS",
         {"PENTAZOCINE INJ 30MG|30 MG|3|2", "FOLIC ACID TAB 5MG|1 TAB|1|30"},
         {"FULL BLOOD COUNT", "PACKED CELL VOLUME"},
         true},
        {"Laceration of the left forearm, fell from a motorcycle",
         "LACERATION OF THE FOREARM",
         {"AMOXICILLIN CAP 500MG|1 CAP|3|5", "DICLOFENAC TAB 50MG|1 TAB|2|3"},
         {"PACKED CELL VOLUME"}},
        {"Low back pain after lifting", "LUMBAR SPONDYLOSIS", {"DICLOFENAC TAB 50MG|1 TAB|2|7"}, {}},
        {"Pain in the right lower abdomen since yesterday, vomiting",
         "APPENDICITIS",
         {"CEFTRIAXONE INJ 1G|1 G|2|3", "METRONIDAZOLE INF 500MG|500 MG|3|3", "DICLOFENAC INJ 75MG|75 MG|2|2"},
         {"FULL BLOOD COUNT", "PACKED CELL VOLUME"},
         true},
        {"Swelling in the groin that comes and goes, now painful",
         "INGUINAL HERNIA",
         {"CEFTRIAXONE INJ 1G|1 G|1|3", "DICLOFENAC INJ 75MG|75 MG|2|2"},
         {"PACKED CELL VOLUME", "URINALYSIS"},
         true},
        {"Routine antenatal visit, fetal movements felt",
         "ANTENATAL CARE",
         {"FERROUS SULPHATE TAB 200MG|1 TAB|2|28", "FOLIC ACID TAB 5MG|1 TAB|1|28"},
         {"URINALYSIS", "PACKED CELL VOLUME"},
         false,
         "ANTENATAL"},
        {"Labour pains since the night, show of blood",
         "PREGNANCY AT TERM",
         {"DEXTROSE SALINE 500ML|500 ML|2|1"},
         {"PACKED CELL VOLUME"},
         true,
         "ANTENATAL"},
        {"Toothache on the lower left since two days",
         "DENTAL CARIES",
         {"AMOXICILLIN CAP 500MG|1 CAP|3|5", "DICLOFENAC TAB 50MG|1 TAB|2|3"},
         {},
         false,
         "DENTAL"},
        {"Bleeding gums when brushing", "GINGIVITIS", {"METRONIDAZOLE TAB 400MG|1 TAB|3|5"}, {}, false, "DENTAL"},
        {"Cannot read at a distance any more", "REFRACTIVE ERROR", {}, {}, false, "EYE"},
        {"Pressure in both eyes, family history", "GLAUCOMA", {"TIMOLOL EYE DROPS 0.5%|1 DROP|2|30"}, {}, false, "EYE"},
        {"Itching rash on both arms", "DERMATITIS", {"CHLORPHENIRAMINE TAB 4MG|1 TAB|3|5"}, {}},
    };
    return list;
}

std::size_t illnessFor(Random& chance, std::string_view clinic) {
    std::vector<std::size_t> own;
    std::vector<std::size_t> any;
    for (std::size_t i = 0; i < illnesses().size(); ++i) {
        const auto* only = illnesses()[i].clinic;
        if (only == nullptr)
            any.push_back(i);
        else if (clinic == only)
            own.push_back(i);
    }
    return chance.pick(own.empty() ? any : own);
}

}  // namespace hospital::demo

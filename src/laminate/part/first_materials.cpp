// Published figures, as their sources print them or converted from their units; where sources disagree each
// has a row of its own.
#include "laminate/part/materials.h"

namespace torvane::laminate {

namespace {

constexpr std::string_view kRows[] = {
    // clang-format off
    R"csv(Name,Kind,Linear density (tex),Density (g/cm3),Fibre share (% of volume),E1 (GPa),E2 (GPa),G12 (GPa),nu12,Tension along (MPa),Compression along (MPa),Tension across (MPa),Compression across (MPa),Shear (MPa),Expansion along (1e-6/K),Expansion across (1e-6/K),Price (per kg),Spool (m),Hardener (parts to 100),Source)csv",
    R"csv(E-glass,tow,,2.565,,70.5,,,,3620,,,,,5.4,,,,,"OCV glass property summary, p. 42 (trade brochure); pristine filament strength; a roving reaches less; rho: middle of 2.55-2.58; E1: middle of 69-72; X: middle of 3450-3790")csv",
    R"csv(E-CR glass (Advantex),tow,,2.62,,81,,,,3750,,,,,6,,,,,"OCV glass property summary, p. 42 (trade brochure)")csv",
    R"csv(S-glass (OCV S),tow,,2.45,,88,,,,4955,,,,,3.4,,,,,"OCV glass property summary, p. 42 (trade brochure); pristine filament strength")csv",
    R"csv(R-glass,tow,,2.55,,87,,,,4510,,,,,4.1,,,,,"OCV glass property summary, p. 42 (trade brochure)")csv",
    R"csv(S-glass (NASA SGLA),tow,,2.491,,85.5,85.5,35.6,0.20,2482,2068,,,,5.04,5.04,,,,"NASA TP-3290 (1993) appendix A and TP-2515 (1986) appendix C, data bank, converted from psi, lb/in3, 1/F")csv",
    R"csv("E-glass (Gevetex, WWFE)",tow,,,,80,80,,0.2,,,,,,,,,,,"Soden, Hinton, Kaddour 1998 (WWFE), quoted in the documentation of an open-source RVE program; E2: as E1, glass is alike in all directions")csv",
    R"csv(e-glass (lamprop),tow,,2.60,,73,73,,0.33,,,,,,5.3,5.3,,,,"lamprop manual 2023, Tables 3.2 and 3.3; E2: as E1, glass is alike in all directions")csv",
    R"csv(T300 (Toray),tow,,1.76,,230,,,,3530,,,,,-0.41,,,,,"Toray Carbon Fibers America, data sheet CFA-001")csv",
    R"csv(T300 (NASA),tow,,1.771,,220.6,13.79,8.96,0.20,2413,2068,,,,-0.99,10.1,,,,"NASA TP-3290 (1993) appendix A and TP-2515 (1986) appendix C, data bank, converted from psi, lb/in3, 1/F; estimates by the source's own word")csv",
    R"csv(T700SC,tow,,1.80,,230,,,0.27,4900,,,,,-0.38,,,,,"lamprop manual 2023, Tables 3.2 and 3.3; X and strain: trade article giving typical values")csv",
    R"csv(AS carbon (NASA),tow,,1.744,,213.7,13.79,13.79,0.20,2758,2758,,,,-0.99,10.1,,,,"NASA TP-3290 (1993) appendix A and TP-2515 (1986) appendix C, data bank, converted from psi, lb/in3, 1/F")csv",
    R"csv(T800S,tow,,1.76,,294,,,0.27,,,,,,-0.60,,,,,"lamprop manual 2023, Tables 3.2 and 3.3")csv",
    R"csv(Aramid Kevlar 29,tow,,1.44,,83,,,,3620,,,,,-2.26,,,,,"Engineered Interfaces in Fiber Reinforced Composites (book), p. 198, Table 5.10 (after Morgan and Allred 1993)")csv",
    R"csv(Aramid Kevlar 49,tow,,1.45,,135,,,,3620,,,,,-2.0,59,,,,"Engineered Interfaces in Fiber Reinforced Composites (book), p. 198, Table 5.10 (after Morgan and Allred 1993); the table heads strength GPa; the figures are MPa")csv",
    R"csv(Aramid Kevlar 149,tow,,1.47,,186,,,,3440,,,,,-1.49,,,,,"Engineered Interfaces in Fiber Reinforced Composites (book), p. 198, Table 5.10 (after Morgan and Allred 1993)")csv",
    R"csv(Epoxy LY556/HT907/DY063,resin,,,,3.35,,,0.35,80,120,,,54,,,,,,"Soden, Hinton, Kaddour 1998 (WWFE), quoted in the documentation of an open-source RVE program")csv",
    R"csv(Epoxy EPR 04908,resin,,1.15,,2.9,,,0.25,,,,,,40,,,,,"lamprop manual 2023, Tables 3.2 and 3.3; the same program's test suite has nu 0.36, alpha 41.4")csv",
    R"csv(Epoxy IMLS (NASA),resin,,1.273,,3.45,,,0.41,48.3,145,,,48.3,103,,,,,NASA TM-83320 (1983) Table 2; TP-3290)csv",
    R"csv(Epoxy IMHS (NASA),resin,,1.218,,3.45,,,0.35,103,241,,,89.6,64.8,,,,,NASA TM-83320 (1983) Table 2; TP-3290)csv",
    R"csv(Epoxy HM/HMHS (NASA),resin,,1.246,,5.17,,,0.35,138,345,,,103,72,,,,,NASA TM-83320 (1983) Table 2; TP-3290)csv",
    R"csv("Epoxy, general",resin,,1.3,,4,,,,60,,,,,60,,,,,Princeton MAE 324 glossary (after Budinski 1999))csv",
    R"csv(Vinylester Atlac 430,resin,,1.145,,3.6,,,0.36,,,,,,55,,,,,"lamprop manual 2023, Tables 3.2 and 3.3")csv",
    R"csv("E-glass/epoxy, vf 0.45",ply,,,45,38.6,8.27,4.14,0.26,1062,610,31,118,72,8.6,22.1,,,,"Kaw, Mechanics of Composite Materials, Table 2.1 (as reproduced on a question page)")csv",
    R"csv("Carbon/epoxy, vf 0.70",ply,,,70,181,10.30,7.17,0.28,1500,1500,40,246,68,0.02,22.5,,,,"Kaw, Mechanics of Composite Materials, Table 2.1 (as reproduced on a question page); E, G, nu also on a second page")csv",
    R"csv("E-glass/LY556, vf 0.62",ply,,,62,53.48,17.7,5.83,0.278,1140,570,35,114,72,,,,,,"Soden, Hinton, Kaddour 1998 (WWFE), quoted in the documentation of an open-source RVE program")csv",
    R"csv("S-glass/epoxy, vf 0.7",ply,,2.0,70,55,16,7.6,0.26,1800,690,40,140,80,2.1,6.3,,,,"Roylance 2000, table p. 17 (after Gerstle 1991)")csv",
    R"csv("Kevlar/epoxy, vf 0.54",ply,,1.38,54,80,5.5,2.1,0.31,2000,280,20,140,40,-4.0,60,,,,"Roylance 2000, table p. 17 (after Gerstle 1991)")csv",
    R"csv("HM graphite/epoxy, vf 0.7",ply,,1.63,70,230,6.6,4.8,0.25,1100,620,21,170,65,-0.7,28,,,,"Roylance 2000, table p. 17 (after Gerstle 1991)")csv",
    R"csv("T300/epoxy, vf 0.60",ply,,,60,135,,,,1860,1470,76,,,,,,,,"Toray Carbon Fibers America, data sheet CFA-001 (250 F epoxy)")csv",
    R"csv("T700S/epoxy, vf 0.60",ply,,1.55,60,135,,,,2550,,,,,-0.38,,,,,"Toray T700S data sheet as quoted in an open materials library (pull request 210, 2026)")csv",
    // clang-format on
};

}  // namespace

std::string FirstMaterials() {
  std::string text;
  for (const std::string_view row : kRows) (text += row) += "\r\n";
  return text;
}

}  // namespace torvane::laminate

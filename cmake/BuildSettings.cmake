# Values that can be changed at build time. The defaults are reserved names that never resolve.
# A host may carry a port ("localhost:8443").
set(TANDRY_STATISTICS_HOST "statistics.olmeric.example" CACHE STRING "Host that receives the daily usage counters")
set(TANDRY_UPDATE_HOST "updates.olmeric.example" CACHE STRING "Host of the software update feed")
set(TANDRY_UPDATE_PUBLIC_KEY "" CACHE STRING "Public key (EdDSA, base64) that verifies the signatures of updates; macOS")
set(TANDRY_SMS_HOST "sms.olmeric.example" CACHE STRING "Host of the SMS service page")
set(TANDRY_CONTACT_PHONE "01 99 00 00 00" CACHE STRING "Telephone number shown in the contact window")
set(TANDRY_PHARMACOVIGILANCE_EMAIL "pharmacovigilance@olmeric.example" CACHE STRING "Pharmacovigilance e-mail address")
set(TANDRY_CUSTOMER_EMAIL "service.client@olmeric.example" CACHE STRING "Customer service e-mail address")
set(TANDRY_INFORMATION_SITE "www.allergies-info.example" CACHE STRING "Host name of the information site on allergy")
set(TANDRY_BRAND_SITE "www.vesk.example" CACHE STRING "Host name of the brand's own site")
set(TANDRY_MAKER_LINE "Olmeric, 2026" CACHE STRING "Maker's name and year in the About box")

set(TANDRY_BUILD_SETTINGS
    STATISTICS_HOST UPDATE_HOST UPDATE_PUBLIC_KEY SMS_HOST CONTACT_PHONE PHARMACOVIGILANCE_EMAIL
    CUSTOMER_EMAIL INFORMATION_SITE BRAND_SITE MAKER_LINE)

message(STATUS "Build-time settings:")
foreach(setting IN LISTS TANDRY_BUILD_SETTINGS)
    message(STATUS "  TANDRY_${setting} = ${TANDRY_${setting}}")
endforeach()

# NSExceptionDomains in Info.plist takes a domain without a port.
string(REGEX REPLACE ":[0-9]+$" "" TANDRY_UPDATE_DOMAIN "${TANDRY_UPDATE_HOST}")

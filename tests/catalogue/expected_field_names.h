// The display names of each field list, in order of adding, as the product's field lists give
// them: Canada means country code 1 in Ontario (province code 3) after 1 July 2010, list use 1,
// no connection (default custom names, as stored).
#pragma once

#include <initializer_list>
#include <string>
#include <vector>

namespace nvwm::testing::expected {

using Names = std::vector<std::string>;

inline Names join(std::initializer_list<Names> parts) {
  Names all;
  for (const Names& p : parts) all.insert(all.end(), p.begin(), p.end());
  return all;
}

inline Names numbered(const std::string& stem, int from = 1, int to = 5) {
  Names names;
  for (int n = from; n <= to; ++n) names.push_back(stem + std::to_string(n));
  return names;
}

// The stored names of a calendar custom block without a connection: the fifth is the exception.
inline Names calendarCustom(const std::string& stem) {
  return join({numbered(stem, 1, 4), {"Custom Remmit Field 5"}});
}

inline const Names kAppointment = {"Appointment Name",       "Appointment Date",
                                   "Appointment Start Time", "Appointment End Time",
                                   "Time Duration",          "Appointment Text"};

inline const Names kDocket = {"Time Entry Name",
                              "Time Entry Date",
                              "Time Entry Start Time",
                              "Time Entry End Time",
                              "Time Duration",
                              "Time Entry Text",
                              "Time Entry Locked",
                              "Is Invoiced",
                              "Used Time Entry Timer",
                              "Time From (Actual Time)",
                              "Time To (Actual Time)",
                              "Time From (Original Time)",
                              "Time To (Original Time)",
                              "Time From (Rounded Time)",
                              "Time To (Rounded Time)",
                              "Time Entry Notes",
                              "Billing Type",
                              "Billing Rate",
                              "Billable Time",
                              "Total Time (Actual)",
                              "Total Time (Rounded)",
                              "Use Adjusted Time",
                              "Total Time (Adjusted)",
                              "Total Time (Final)",
                              "Total Amount (Actual)",
                              "Total Amount (Final)",
                              "Internal Time Entry Description",
                              "Invoice Time Entry Description"};

inline const Names kTaskSchedule = {
    "Task Name",          "Task Due Date",     "Task in-House Due Date",
    "Task Calendar Date", "Employee Assigned", "Task Year",
    "Amount Paid",        "Completed By",      "Date Completed"};

inline const Names kTask = {"Task Subject",  "Task Calendar Date", "Task Start Time",
                            "Task End Time", "Time Duration",      "Task Text"};

inline Names company(bool canada, bool use2 = false) {
  Names n = {"Company Name", "Client ID", "Corporate Name", "Company Type", "Industry Type"};
  if (use2) {
    n = join({n, {"Address 1", "Address 2", "Address 3"}});
  } else {
    n.push_back("Address");
  }
  n.push_back("City");
  if (canada) {
    n.push_back("Province");
    if (!use2) n.push_back("Abbreviated Province");
    n.push_back("Postal Code");
  } else {
    n = join({n, {"State", "Zip Code"}});
  }
  n = join({n,
            {"Country", "Office Number", "Alternate Phone Number", "Fax Number", "Email",
             "Web Site", "Company FaceBook URL", "Company Twitter Account", "Supervising Partner",
             "Managing Accountant"}});
  if (use2) {
    n = join({n, numbered("Company Alternate Address ", 1, 3)});
  } else {
    n.push_back("Company Alternate Address");
  }
  n.push_back("Company Alternate City");
  if (canada) {
    n.push_back("Company Alternate Province");
    if (!use2) n.push_back("Company Alternate Abbreviated Province");
    n.push_back("Company Alternate Postal Code");
  } else {
    n = join({n, {"Company Alternate State", "Company Alternate Zip Code"}});
  }
  n.push_back("Company Alternate Country");
  return join({n, numbered("Company Custom Field ")});
}

inline Names contactName(bool use2 = false) {
  Names n = {use2 ? "Contact Full Name" : "Contact Display Name"};
  if (!use2) n.push_back("Contact & Spouse Name");
  return join({n,
               {"Client ID", "Contact Name Prefix", "Contact First Name", "Contact Middle Name",
                "Contact Last Name", "Contact Name Suffix"}});
}

inline const Names kAccountingOntario = {"Business Number",     "RC59 Permission Level",
                                         "RC59 Form Status",    "HST Number",
                                         "HST Filing Method",   "PST Number",
                                         "Payroll Number",      "Payroll Registered As",
                                         "Year End Date",       "Federal Corp. Tax Number",
                                         "ON Corp. Tax Number", "ON Corp. MCBS Number",
                                         "Incorporation Date",  "Charitable Number",
                                         "WSIB Number",         "WSIB Firm Number",
                                         "WSIB Premium Rate",   "WSIB Coverage",
                                         "EHT Number",          "EHT Premium Rate",
                                         "Name Renewal Date",   "Law Society Member Number"};

inline const Names kAccountingUS = {"Federal Employer Identification Number",
                                    "Sellers Permit Number",
                                    "Year End Date",
                                    "Secretary of State File Number",
                                    "Incorporation Date",
                                    "Property Tax Number",
                                    "Form 637 Registration Number",
                                    "Terminal Control Number",
                                    "Terminal Name",
                                    "Terminal Location",
                                    "Alcohol Number"};

inline const Names kSoftware = {"Software Name",
                                "Software Serial Number",
                                "Software Version",
                                "Software Account Number",
                                "Data File Saved As",
                                "User Name",
                                "Password"};

// An address of the contact detail block: "<prefix> Address", "<prefix> City", ...
inline Names address(const std::string& prefix, bool canada, bool use2) {
  Names n;
  if (use2) {
    n = numbered(prefix + " Address ", 1, 3);
  } else {
    n.push_back(prefix + " Address");
  }
  n.push_back(prefix + " City");
  if (canada) {
    n.push_back(prefix + " Province");
    if (!use2) n.push_back(prefix + " Abbreviated Province");
    n.push_back(prefix + " Postal Code");
  } else {
    n = join({n, {prefix + " State", prefix + " Zip Code"}});
  }
  return n;
}

inline Names contactDetail(bool canada, bool use2 = false) {
  return join({{canada ? "Contact SIN" : "Contact SSN", "Contact Employee Type",
                "Contact Percentage Ownership", "Contact Business Name", "Contact Job Title",
                "Contact Business Department", "Contact Business Office", "Contact Business Phone",
                "Contact Business Alt. Phone", "Contact Business Cell", "Contact Business Pager",
                "Contact Business Fax"},
               address("Contact Business", canada, use2),
               {"Contact Business Country", "Contact Business Web Site", "Contact Business Email",
                "Contact Business FaceBook URL", "Contact Business Twitter Account",
                "Contact Personal Phone", "Contact Personal Cell", "Contact Personal Pager",
                "Contact Personal Fax", "Contact Personal Web Site", "Contact Personal Email",
                "Contact Personal FaceBook URL", "Contact Personal Twitter Account"},
               address("Contact Home", canada, use2),
               {"Contact Home Country", "Contact Children", "Contact Gender", "Contact Birthday",
                "Contact Anniversary", "Contact Spoken Language", "Contact Marital Status",
                "Spouse Name Prefix", "Spouse First Name", "Spouse Middle Name", "Spouse Last Name",
                "Spouse Name Suffix", "Spouse Display Name", "Spouse Personal Email",
                "Spouse Home Phone", "Spouse Personal Cell"},
               address("Spouse Home", canada, use2),
               {"Spouse Home Country", "Spouse Gender", "Spouse Birthday",
                canada ? "Spouse SIN" : "Spouse SSN"},
               address("Contact Alternate", canada, use2),
               {"Contact Alternate Country"},
               numbered("Contact Custom Field ")});
}

inline Names firm(bool canada) {
  return join(
      {{"Your Company Name", "Your Corporate Name", "Your Company Type", "Your Industry Type",
        "Your Address", "Your City"},
       canada ? Names{"Your Province", "Your Postal Code"} : Names{"Your State", "Your Zip Code"},
       {"Your Country", "Your Office Number", "Your Fax Number", "Your Email", "Your Web Site"},
       numbered("Your Company Custom Field ")});
}

// The client-side rows every client kind of list has after its company rows.
inline Names accountingAndSoftware(bool canada) {
  return join({canada ? kAccountingOntario : kAccountingUS, numbered("Custom Field "), kSoftware});
}

}  // namespace nvwm::testing::expected

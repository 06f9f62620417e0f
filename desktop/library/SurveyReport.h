#ifndef TARQ_LIBRARY_SURVEY_REPORT_H_
#define TARQ_LIBRARY_SURVEY_REPORT_H_

#include <string>

#include "ContentDirectory.h"
#include "HtmlReport.h"
#include "JsonWriter.h"
#include "SurveySummary.h"

// The counts of a survey, for people; what the server wrote cannot control a terminal.
std::string surveyText(const ServerDescription& server, const SurveySummary& summary);

// The same as one object.
void writeSurvey(JsonWriter& json, const ServerDescription& server, const SurveySummary& summary);

// The same for a page; its items come one by one.
ReportSummary surveyPage(const ServerDescription& server, const SurveySummary& summary);

#endif  // TARQ_LIBRARY_SURVEY_REPORT_H_

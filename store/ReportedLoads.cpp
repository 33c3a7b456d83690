#include "ReportedLoads.h"

namespace ovela {

namespace {

thread_local LoadReport* tReport = nullptr;

}  // namespace

ReportedLoads::ReportedLoads(LoadReport* report) : mOuter(tReport) {
    tReport = report;
}

ReportedLoads::~ReportedLoads() {
    tReport = mOuter;
}

LoadReport* ReportedLoads::current() {
    return tReport;
}

}  // namespace ovela

#ifndef OVELA_REPORTED_LOADS_H
#define OVELA_REPORTED_LOADS_H

// How the library's own tools ask a load for its report; not part of the
// library's interface, which takes no report.
namespace ovela {

class LoadReport;

// While one lives, every load of a store on the calling thread tells `report`
// everything it decided: what it skipped, changed, dropped or never sent, with
// the lines of the file, and whether the file loaded; the report also keeps
// the model that the load read and the origin of every entry. Scopes nest: the
// innermost report is told.
class ReportedLoads {
  public:
    explicit ReportedLoads(LoadReport* report);
    ~ReportedLoads();
    ReportedLoads(const ReportedLoads&) = delete;
    ReportedLoads& operator=(const ReportedLoads&) = delete;

    // The report of the loads on this thread; null when none was asked for.
    static LoadReport* current();

  private:
    LoadReport* mOuter;
};

}  // namespace ovela

#endif  // OVELA_REPORTED_LOADS_H

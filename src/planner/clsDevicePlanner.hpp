#pragma once
#include <atomic>
#include <memory>
#include <string>
#include <vector>

#include "planner/clsPlan.hpp"
#include "planner/clsPlanResult.hpp"

namespace pendulon {

class AppServices;
class Configurator;
class PlannerHost;
class clsPLL;
class clsPlannerRun;

// How one device serves a plan, found in the device's own window. A family planner proposes
// configurations (what a user sets in the window: sources and dividers of the outputs, the
// frequencies of the loops); each is tried in a new document of the device by setting its
// fields as a user does and pressing Calculate, and what the window then shows is the result:
// actual frequencies, ppm, loop solutions, limit colours and supply current. The configuration
// with the smallest worst |ppm| wins; of equal ones, the one of lower typical current, then the
// one proposed first.
class clsDevicePlanner {
  public:
    clsDevicePlanner(const PlannerHost& host, std::string device);
    virtual ~clsDevicePlanner();
    clsDevicePlanner(const clsDevicePlanner&) = delete;
    clsDevicePlanner& operator=(const clsDevicePlanner&) = delete;

    // The planner of a device of the table, or nullptr for another name.
    static std::unique_ptr<clsDevicePlanner> Create(const PlannerHost& host,
                                                    const std::string& device);

    const std::string& Device() const { return device_; }

    // An output pin and the fields of the window that show it: its source (a list, or the
    // QX5140's assignment label), its desired frequency and its actual frequency.
    struct Pin {
        std::string strName;
        std::string strSource;
        std::string strDesired;
        std::string strActual;
    };

    // Tries the plan. cancel, when it becomes true, ends the work early; the result is then of
    // no use.
    clsPlanResult Plan(const clsPlan& plan, const std::atomic<bool>& cancel);

    // Opens a result of this device in the application as a new document, made as File, New
    // makes it and set up as the result's actions say, and checks that its window shows the
    // outputs the result promises. An empty text when it does; else what went wrong (no new
    // document, or a window that shows otherwise), and the document stays as it came.
    std::string Open(AppServices& app, const clsPlanResult& result) const;
    // Whether a document of this device shows the outputs a result promises: an empty text, or
    // what it shows otherwise.
    std::string Shows(Configurator& document, const clsPlanResult& result) const;

  protected:
    // A configuration to try: what a user does after choosing the voltage, the package and the
    // reference, and on which pin each wanted output comes out.
    struct Candidate {
        std::vector<PlanAction> aActions;
        std::vector<std::string> astrPins;
        // The worst |ppm| the family knows the window will show, from the loops it solved in
        // the window already; -1 when it cannot tell. A configuration known to be worse than
        // one that serves already is not tried.
        std::int32_t lngKnownWorst = -1;
        // Set when the configuration has been read: in a new document of its own (confirmed),
        // or by the family in a window it worked in before (then it is read once more in a new
        // document before it is taken, as Open will make it).
        bool blnRead = false;
        bool blnConfirmed = false;
        clsPlanResult reading;
        std::string strProblem;
    };

    // What the family planners have in hand while they propose configurations.
    struct Context {
        clsPlannerRun& run;
        const clsPlan& plan;
        // The wanted frequencies as the window's fields keep them.
        const std::vector<double>& adblWanted;
        // The reference as the window has it.
        double dblReference;
        // The actions up to here: voltage, package, reference.
        const std::vector<PlanAction>& aPrefix;
        const std::atomic<bool>& cancel;
    };

    // The outputs of the device that can carry a wanted frequency.
    virtual int OutputCount(Configurator& document) const = 0;
    // The range of an output frequency at the window's present voltage, for the reason given
    // when a wanted frequency lies outside it.
    virtual void OutputRange(Configurator& document, double& minimum, double& maximum) const = 0;
    // The package: what a user sets after the voltage (the QX4860 comes in two).
    virtual std::vector<PlanAction> PackageActions(Configurator& document,
                                                   const clsPlan& plan) const;
    // How a user gives the window this reference; the default types it into cboFRef.
    virtual std::vector<PlanAction> ReferenceActions(Configurator& document,
                                                     double reference) const;
    // The configurations worth trying at this reference, best first where the family can tell.
    // None, with the reason in reason, when the device cannot give the wanted outputs at all.
    virtual std::vector<Candidate> Candidates(const Context& context, std::string& reason) = 0;
    // Reads the wanted outputs (on the candidate's pins) and the loops in use as the window
    // shows them; a problem (an output the window does not give as wanted) goes to problem.
    virtual void Read(Configurator& document, const std::vector<double>& wanted,
                      const std::vector<std::string>& pins, clsPlanResult& result,
                      std::string& problem) const = 0;

    // Whether the document, saved as an entry file, opens again on the outputs of its reading:
    // an empty text, or why not. Asked of the configurations a family read in a window of its
    // own, which are taken only if they do; the default says yes.
    virtual std::string ReopenProblem(clsPlannerRun& run, Configurator& document,
                                      const clsPlanResult& reading) const;

    // Tries a configuration in a new document of the run and reads it.
    void Evaluate(clsPlannerRun& run, const std::vector<double>& wanted,
                  Candidate& candidate) const;
    // Reads the configuration the document shows now into the candidate; reports is the count
    // of error reports the run had shown before the candidate's actions.
    void ReadDocument(clsPlannerRun& run, Configurator& document, const std::vector<double>& wanted,
                      size_t reports, Candidate& candidate) const;
    // What a window shows beside the outputs and loops: pins, reference, current, the fields it
    // marks out of limits.
    void ReadCommon(Configurator& document, clsPlanResult& result) const;

    // Helpers for the family planners.
    // The pin of that name.
    static const Pin& PinNamed(const std::vector<Pin>& pins, const std::string& name);
    // A loop as its data list shows the solution in force.
    static PlanLoop SolvedLoop(const std::string& name, double target, clsPLL& pll,
                               const std::string& data);
    // "33.333 MHz, 48 MHz and 24.576 MHz".
    static std::string Together(const std::vector<double>& frequencies);
    // Why an output read is not the wanted one: its desired frequency differs, or its loop
    // has no solution.
    static std::string OtherThanWanted(const PlanOutput& output, const std::string& desired);
    static std::string Unsolved(const PlanOutput& output);
    // "48 MHz", "33.333 MHz".
    static std::string Megahertz(double frequency);
    // "3.3 V", "5 V".
    static std::string Volts(double voltage);
    // The number and the PPM of an actual-frequency text such as "33.33301  PPM:2"; false when
    // the text holds no PPM (an "Off" entry).
    static bool ParseActual(const std::string& text, std::string& actual, std::int32_t& ppm);
    // The desired frequency as a window writes it ("24.57600"), for the comparison of a wanted
    // frequency with the desired frequency the window derives from the loop and divider.
    static std::string DesiredText(double frequency);

  private:
    const PlannerHost& host_;
    std::string device_;
};

}  // namespace pendulon

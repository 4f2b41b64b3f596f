#pragma once

// The device steps of the configurator contract for a test double that has no die, loops or
// limits of its own. Put it in the class body of a test window derived from Configurator.
#define PENDULON_CONFIGURATOR_TEST_STEPS              \
  public:                                             \
    void CheckPLLLimits() override {}                 \
    void CalculateAllDesiredClocks() override {}      \
                                                      \
  protected:                                          \
    void InitializeControls() override {}             \
    void InitializeDieClass() override {}             \
    void InitializePLLClass() override {}             \
    void SetDefaultOptions() override {}              \
    double DieVoltage() const override {              \
        return 5.0;                                   \
    }                                                 \
    void SetDieVoltage(double) override {}            \
    void GetCurrentPLLLimits() override {}            \
    void SetNewPLLLimits() override {}                \
    bool LimitsEqualDefaults() override {             \
        return true;                                  \
    }                                                 \
    double ReferenceMinimum() const override {        \
        return 0;                                     \
    }                                                 \
    double ReferenceMaximum() const override {        \
        return 1000;                                  \
    }                                                 \
    void FindPLLs() override {}                       \
    void FillFromEntryFile(clsEntryFile&) override {} \
                                                      \
  public:

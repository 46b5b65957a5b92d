#pragma once

#include "tests/database/conformance_random_walk.h"
#include "tests/database/conformance_rows.h"
#include "tests/database/conformance_statements.h"
#include "tests/database/conformance_values.h"

/// Everything that a database must do, for each engine's own test file to instantiate.
namespace autonotify::host::conformance {

REGISTER_TYPED_TEST_SUITE_P(
    Conformance, ValuesComeBackByTheKindOfTheirColumn, ARefusedValueChangesNothing,
    ColumnNamesMatchInAnyCaseAndByTheirTable, ANewRowShowsItsDefaultsBeforeAndAfterItIsSaved,
    StatementsOfTheDialectRunInEveryMode, OtherStatementsAreRefusedAndHarmNothing,
    ConditionsSelectWhatTheySay, OrderPutsNullFirstAndCountsAreNumbers,
    RowsOfNoOrderStandInThatOfTheirKeys, RowsAreWalkedMarkedAndCounted,
    SearchComparesByTheKindOfTheColumn, SearchInALoopSeesWhatWasWritten,
    ColumnsAndRowsAreReadWholeAndThePositionStays, AWriteReachesTheTableOfItsColumn,
    WritingNeedsAnUpdatableRecordsetAndARow, AWalkKeepsItsRowsWhileTheyLeaveTheCondition,
    DeletedRowsArePassedOver, KeysAreNeverUsedTwice, AnAbandonedRowLeavesNothing,
    AddedRowsStandBehindTheOthersOnce, HandlesAreNeverReused, DesksSeeEachOthersWrites,
    ARandomWalkAgreesWithAModel);

}  // namespace autonotify::host::conformance

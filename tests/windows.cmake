# There is one mouse, one keyboard and one femap.model on a machine: tests with them run one at a time.
velmar_test_library(controlled_standin standin
    SOURCES ControlledApplication.cpp DockWindow.cpp IncomingCallFilter.cpp
    LINK standin)
add_executable(test-standin standin/TestStandin.cpp)
target_link_libraries(test-standin PRIVATE controlled_standin)
target_link_options(test-standin PRIVATE -municode)
set_target_properties(test-standin PROPERTIES
    RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/programs)

velmar_test_library(beside_standin standin
    SOURCES ChangesTranscript.cpp ExampleStudy.cpp StartedStandin.cpp Transcript.cpp
    LINK femap_com)
add_dependencies(beside_standin test-standin)
velmar_test_library(form_driver app/window
    SOURCES Engineer.cpp FormDriver.cpp FormFiles.cpp Hand.cpp ListViews.cpp RemoteHeap.cpp
    LINK app_window beside_standin)

velmar_test(windows LINK windows)
velmar_test(system
    SOURCES
        DiskFilesTest.cpp
        DiskFilesTest_windows.cpp
        FileKeyTest.cpp
        LookingAtFilesTest.cpp
        ModelMarkTest_windows.cpp
        OpenAloneTest.cpp
        SystemTest.cpp
        SystemTest_windows.cpp
    LINK system)
velmar_test(femap SOURCES NumberTextTest.cpp LINK femap)
velmar_test(femap/com LOCK femap.model LABELS com LINK beside_standin controlled_standin)
velmar_test(standin LOCK femap.model
    SOURCES
        BothAnswersTest.cpp
        ExchangeTest.cpp
        MembersTest.cpp
        ModesTest.cpp
        PutTest.cpp
        SelectionWindowTest.cpp
    LINK form_driver controlled_standin)
velmar_test(loop/evaluate SOURCES ProcessTest_windows.cpp LINK loop_evaluate)
add_dependencies(loop_evaluate_test velmar-evaluate)
velmar_test(app/window LOCK femap.model
    SOURCES
        BoxesTest.cpp
        BusyFormTest.cpp
        ColoursTest.cpp
        CommandsTest.cpp
        CopyKeysTest.cpp
        DialogPlaceTest.cpp
        DifferenceViewTest.cpp
        DividerTest.cpp
        EndedWaitTest.cpp
        EventHookTest.cpp
        FindFieldTest.cpp
        FindingTipsTest.cpp
        FindingsWindowTest.cpp
        FormThatIsOffTest.cpp
        GridShownTest.cpp
        GridViewTest.cpp
        InputBlockTest.cpp
        KeptTest.cpp
        KeysTest.cpp
        ListMenuTest.cpp
        LongListTest.cpp
        LostPaneTest.cpp
        NameSearchTest.cpp
        NoMemoryTest.cpp
        PaneTest.cpp
        PreviewKeysTest.cpp
        PreviewWindowTest.cpp
        ProductBesideFemapTest.cpp
        PropertyListWindowTest.cpp
        RemoteHeapTest.cpp
        ResolutionTest.cpp
        RowMarksTest.cpp
        SecondFormTest.cpp
        SelectedByHandTest.cpp
        SelectedRunsTest.cpp
        SentMessagesTest.cpp
        StartWindowTest.cpp
        StepBackKeyTest.cpp
        StudyByHandTest.cpp
        TenStepsTest.cpp
        WheelTest.cpp
        WhichFemapTest.cpp
        WindowPlacesTest.cpp
        WindowTest.cpp
    LINK form_driver)
velmar_test(app/window NAME product_modes_test LOCK femap.model LABELS long
    SOURCES ProductInModesTest.cpp
    LINK form_driver standin)
velmar_test(study LOCK femap.model LABELS com
    SOURCES StudyOverComTest_windows.cpp
    LINK beside_standin)
velmar_test(probe LOCK femap.model LABELS com
    SOURCES
        DialogWatchTest.cpp
        ProbeCallTest.cpp
        ProbeReportTest.cpp
        ReportReader.cpp
        ReportTest.cpp
        TypeInformationTest.cpp
    LINK probe beside_standin)
add_dependencies(probe_test velmar-study)
velmar_test(probe NAME probe_modes_test LOCK femap.model LABELS long
    SOURCES ProbeModesTest.cpp ReportReader.cpp
    LINK beside_standin standin)
add_dependencies(probe_modes_test velmar-study)
velmar_test(reliability
    SOURCES
        EndedRunsTest_windows.cpp
        HeldFilesTest_windows.cpp
        HeldModelTest_windows.cpp
        Imports_windows.cpp
        ImportsTest_windows.cpp
        PathsTest.cpp
        PathsTest_windows.cpp
        RealFolder.cpp)
add_dependencies(reliability_test VelmarFemapInterface velmar-study femap-standin)

# The whole tool beside a stand-in that refuses each call in turn, or ends in it.
velmar_test(reliability NAME every_call_test LOCK femap.model LABELS long
    SOURCES EveryCallByComTest_windows.cpp RowsAndFiles.cpp World.cpp
    LINK app beside_standin)

# What form and velmar-study say beside one that does not answer, after the time that users wait.
velmar_test(reliability NAME silent_femap_test LOCK femap.model LABELS long
    SOURCES SilentFemapTest_windows.cpp
    LINK form_driver)

# The form over a model host in its own process, for the tests of windows.
add_executable(embedded-form WIN32 app/window/EmbeddedForm.cpp)
target_link_libraries(embedded-form PRIVATE app_window femap_embedded form_resources)
target_link_options(embedded-form PRIVATE -municode)
set_target_properties(embedded-form PROPERTIES
    RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/programs)
add_dependencies(form_driver embedded-form VelmarFemapInterface velmar-study)

# For tools/take-pictures.sh.
add_executable(form_scenes EXCLUDE_FROM_ALL app/window/Scenes.cpp)
target_link_libraries(form_scenes PRIVATE form_driver test_main)

#include "generate/ScanProject.h"

#include "generate/ExchangeFiles.h"
#include "generate/LinePieces.h"
#include "generate/ModelPath.h"
#include "generate/Targets.h"

#include <string_view>

namespace generate
{

using form::Context;
using form::ParameterGrid;

namespace
{

constexpr std::string_view project = R"text(
#####################################
##                                 ##
##  Kelvex Ombra Project (.kvp)    ##
##                                 ##
#####################################


set whole_output_file 0
set max_file_size 131072
set xterm "Job launched as batch file (pause at end)"

set lineg1 solid
set par_lineg(@1 to 4@) solid

set markerg1 none
set par_markerg(@1 to 4@) none

set colorg1 "#0000ff"
set par_colorg(@1 to 4@) "#0000ff"
set lineg2 solid
set markerg2 none
set colorg2 "#ff0000"

set backgroundcolor "#c0c0c0"
set par_bgcol(@1 to 4@) "#c0c0c0"

set plotbackgroundcolor "#ffffff"
set par_plotbgcol(@1 to 4@) "#ffffff"

set marker_color "#000000"
set par_markcol(@1 to 4@) "#000000"

set minx(@1 to 4@) "auto"
set maxx(@1 to 4@) "auto"

set miny(@1 to 4@) "auto"
set maxy(@1 to 4@) "auto"

set spec_minx(@1 to 4@) ""
set spec_maxx(@1 to 4@) ""

set spec_miny(@1 to 4@) ""
set spec_maxy(@1 to 4@) ""

set lastmodify 0

set linkmethod "Scheduled"
set linkfile "@model@.pcs"
set linkfiledisplay "@model@.pcs"
set scriptfile "@model@.script"
set minormax min
set traintime 1.0
set opttime 100
set var 0.0
set tfinal "tmp/trained.opt"
set jobtype "Analysis"
set scanvarname
set scanvarlow
set scanvarhigh
set scanvarinc

set parnum(1) 1
set parnum(2) 3
set parnum1(1) 1
set parnum1(2) 3
set parnum2(1) 1
set parnum2(2) 3
set parnum3(1) 1
set parnum3(2) 3

set jobtime 1
set jobtimeunit hrs
set analtime 1
set analtimeunit mins
set designspace "unknowntopography"
@blank@
@blank@
set openparfile "@model@.par"
@blank@
set seqrestarts 1
set geneticiter 100
set geneticrestart 3
set geneticstep 0.002
set geneticmult 5
set simplexiter 1000
set simplexrestart 3
set simplexstep 0.1
set sqpiter 50
set sqprestart 3
set sqpstep 0.001
set ran1 0
set ran2 0
set ran3 0
@blank@
set iterupdate 1
@blank@
set descriptiontext "Project:
========

Prepared by:
Last Modified:


Description:
============


Change log:
===========
"
)text";

constexpr std::string_view process = R"text(
'H'  'y2k2'
'H'  'graphic_info_start 40 50'
'H'  'graphic_info_end 407 50'
'H'  'color_info canvas #3A6EA5'
'H'  '========================================='
'H'  'analysis'
'H'  'CAEInput'
'H'  'graphic_info 131 50 grey analysis.gif'
'I'  'InputValues.txt.template' 'InputValues.txt' '<local>'  0
'Y'  'CAEInput' '*' '<local>' 0
'H'  '========================================='
'H'  'analysis'
'H'  'Nastran'
'H'  'graphic_info 222 50 grey analysis.gif'
'Y'  '@command line@' '*' '<local>' 0
'H'  '========================================='
'H'  'analysis'
'H'  'CAEOutput'
'H'  'graphic_info 312 50 grey analysis.gif'
'Y'  'CAEOutput' '*' '<local>' 0
'O'  'OutputValues.txt.template' 'OutputValues.txt' '<local>' 0
'H'  'END'
)text";

constexpr std::string_view parameters = R"text(
'H' 'y2k2'
'H' 'Inputs'
'H' '============'
'P'    @input@        0.00    0.0    -9.425e6    9.425e6    0.00    1
'H' 'Outputs'
'H' '============'
'P'    @output@        0.00    0.0    -9.425e6    9.425e6    0.00    2
'H' 'END'
)text";

constexpr FixedBounds parameterBounds = {wordBehind(parameters, "@input@        0.00    0.0"),
                                         wordBehind(parameters, "-9.425e6")};

// Name and value of each row as a parameter record holds them.
Lines namesAndValues(form::Progress& progress, const ParameterGrid& grid)
{
    return Lines([&progress, &grid](const LineSink& add) {
        std::string line;
        forEachNamedRow(progress, grid, [&](const ParameterRow& row) {
            line.assign("'").append(row.name()).append("'    ").append(row.value());
            add(line);
        });
    });
}

}  // namespace

void WriteOmbraProject(Context& context, form::Progress& progress)
{
    const auto [folder, name] = openModelPath(context);
    WriteProjectFile(context, progress, folder, name);
    WriteProcessFile(context, progress, folder, name);
    WriteParameterFile(context, progress, folder, name);
    WriteExchangeFiles(context, progress, folder, name);
}

FixedBounds boundsOfParameters()
{
    return parameterBounds;
}

void WriteProjectFile(Context& context, form::Progress& progress, const std::string& folder,
                      const std::string& name)
{
    TextFile file = openTarget(context, {folder, name}, projectFile);
    file.write(
        fillIn(project, {{"model", {name}}, {"1 to 4", {"1", "2", "3", "4"}}, {"blank", {" "}}}));
    finish(progress, file);
}

void WriteProcessFile(Context& context, form::Progress& progress, const std::string& folder,
                      const std::string& name)
{
    TextFile file = openTarget(context, {folder, name}, processFile);
    file.write(fillIn(process, {{"command line", {context.form.CommandLine.Text}}}));
    finish(progress, file);
}

void WriteParameterFile(Context& context, form::Progress& progress, const std::string& folder,
                        const std::string& name)
{
    TextFile file = openTarget(context, {folder, name}, parameterFile);
    fillIn(parameters,
           {{"input", namesAndValues(progress, context.grids->InputsList)},
            {"output", namesAndValues(progress, context.grids->OutputsList)}},
           [&](std::string_view line) { file.line(line); });
    finish(progress, file);
}

}  // namespace generate

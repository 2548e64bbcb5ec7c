// The evaluators of all directives: one function each, and their table.
#pragma once

#include "generator/text_resolver.h"

namespace brindle {

// axis_words.cpp: points: start, end, middle, and the corners of the job
Evaluator StartPtWords, EndPtWords, MidPtWords, LowerLeft, UpperRight, OverallSize;

// arc_words.cpp: centre, radius and subtended angle
Evaluator CenPtWords, ArcDataWords, Radius, Subtended, ArcSign;

// rotation_words.cpp: the direction of a tangential tool
Evaluator SetToolDir, AtAngle, FinAngle, TangAuxCode1, TangAuxCode2;

// line_words.cpp: small words of the record and of the block
Evaluator CutWidth, BridgeWidth, BridgeNum, LineType, ToolId;
// Gives nothing: what the directive does has happened before its line is resolved.
Evaluator NothingToWrite;

// speed_words.cpp: the feed of the current record
Evaluator SpeedWords;

// text_words.cpp: text records
Evaluator TextDataWord, TextRotWord, TextHgtWord;

// program_words.cpp: numbers and names of programs, and the codes of a call
Evaluator MainProgNum, CurProgNum, CurProgName, IncludeNum, IncludeName, NumOfSubs, MarkAsSub;
Evaluator IncludeMirCode, IncludeMirResetCode, IncludeRotWord, IncludeRotResetWord;

// job_words.cpp: what the host set, the version, the dwell
Evaluator Date, Time, CADFile, OutputFile, MaterialFile, DataSetName, TuneFile, TuneMenuPick, DrvVersion;
Evaluator BlankX, BlankY, RotaryRadius, IODwell;

// code_words.cpp: codes that the tuning gives as texts
Evaluator InterpCode, AbsIncCode, UnitsCode, GrainCode, SideCode, FlyModeCode;

// By DirectiveId, complete.
extern const EvaluatorTable kEvaluators;

}  // namespace brindle

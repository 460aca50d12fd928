#pragma once

#include <type_traits>

/// The numbers of the language modules' texts, each under its one name.
namespace pelorin::strings {

// The program and its start
inline constexpr int kProgram = 100;
inline constexpr int kMainTitle = 119;
inline constexpr int kAboutTitle = 218;
inline constexpr int kIconName = 1016;
inline constexpr int kVersionLabel = 1017;
inline constexpr int kProgramName = 1018;
inline constexpr int kLicenceLabel = 2220;
inline constexpr int kCommitLabel = 2221;
inline constexpr int kToolkitLabel = 2222;
inline constexpr int kRegistryDamaged = 1003;
inline constexpr int kProfileDamaged = 1004;
inline constexpr int kRegistryUnreadable = 1027;

// Help
inline constexpr int kNoHelpFiles = 238;
inline constexpr int kHelpFailed = 239;
inline constexpr int kHelpTitle = 1014;
inline constexpr int kHelpBack = 2170;
inline constexpr int kHelpForward = 2171;

// Menu
inline constexpr int kExit = 106;
inline constexpr int kConnectionMenu = 108;
inline constexpr int kConnect = 109;
inline constexpr int kRefreshCommand = 193;
inline constexpr int kViewMenu = 194;
inline constexpr int kSaveBackupCommand = 195;
inline constexpr int kRestoreBackupCommand = 196;
inline constexpr int kSendE = 197;
inline constexpr int kSendQ = 198;
inline constexpr int kSensorMenu = 200;
inline constexpr int kHelpCommand = 201;
inline constexpr int kAbout = 202;
inline constexpr int kHelpMenu = 203;
inline constexpr int kEnglish = 204;
inline constexpr int kGerman = 205;
inline constexpr int kFrench = 206;
inline constexpr int kSpanish = 207;
inline constexpr int kItalian = 208;
inline constexpr int kLanguageMenu = 209;

// Buttons of several windows
inline constexpr int kCancel = 120;
inline constexpr int kRefresh = 166;
inline constexpr int kApply = 180;
inline constexpr int kOk = 241;

// Ports
inline constexpr int kPortNotOpened = 101;
inline constexpr int kLineNotSet = 102;
inline constexpr int kTimeoutsNotSet = 103;
inline constexpr int kQueuesNotSet = 104;
inline constexpr int kWorkerNotStarted = 105;
inline constexpr int kSelectPort = 107;
inline constexpr int kPort = 114;
inline constexpr int kNoPort = 115;
inline constexpr int kAskForOtherPort = 167;
inline constexpr int kSimulated = 1000;
inline constexpr int kNoPermission = 1001;
inline constexpr int kPermissionOfAdministrator = 2265;
inline constexpr int kAdapterTaken = 2172;
inline constexpr int kPortInUse = 1002;
inline constexpr int kPortLabel = 1010;
inline constexpr int kNoPortPresent = 1019;
inline constexpr int kNewPortNumber = 1960;
inline constexpr int kNoAdapter = 1961;
inline constexpr int kPortMissing = 1962;
inline constexpr int kWithoutPort = 1963;
inline constexpr int kDemonstration = 1964;
inline constexpr int kWithoutPortNotice = 1965;
inline constexpr int kNotIdentifiedNotice = 1966;
inline constexpr int kTypeRange = 1967;
inline constexpr int kTypeWithoutRange = 1968;
inline constexpr int kUseAsType = 1969;
inline constexpr int kAlwaysWidened = 1971;
inline constexpr int kAlwaysNew = 1972;
inline constexpr int kChosenByHand = 1973;
inline constexpr int kTypeChosenByHand = 1974;
inline constexpr int kOwnSettingsFirst = 1975;
inline constexpr int kRecentFiles = 1976;
inline constexpr int kPortOpening = 1977;

// Connection
inline constexpr int kConnecting = 116;
inline constexpr int kConnected = 117;
inline constexpr int kNotConnected = 118;
inline constexpr int kSwitchSupplyOn = 244;
inline constexpr int kSwitchSupplyOff = 245;
inline constexpr int kNoBounds = 1005;
inline constexpr int kHeaderConnected = 2160;
inline constexpr int kHeaderNotConnected = 2161;
inline constexpr int kHeaderNotIdentified = 2162;
inline constexpr int kHeaderLost = 2163;
inline constexpr int kSensor = 1735;
inline constexpr int kTypeNumber = 2164;
inline constexpr int kTypeNumberByHand = 2165;
inline constexpr int kFirmwareRevision = 2166;
inline constexpr int kHeaderSafeWritesOn = 2167;
inline constexpr int kHeaderSafeWritesOff = 2168;
inline constexpr int kLightConnected = 1006;
inline constexpr int kLightNotConnected = 1007;
inline constexpr int kLightNoExchange = 1008;
inline constexpr int kLinkLost = 1012;
inline constexpr int kLightName = 1015;

// Reading from and writing to the sensor
inline constexpr int kReading = 121;
inline constexpr int kReadFailed = 123;
inline constexpr int kReady = 126;
inline constexpr int kWriteFailed = 170;
inline constexpr int kWriting = 217;
inline constexpr int kNotIdentified = 1013;
inline constexpr int kNotAllRead = 1201;
inline constexpr int kNoResolution = 1206;
inline constexpr int kWrittenBefore = 1310;
inline constexpr int kNothingWrittenBefore = 1311;
inline constexpr int kMisread = 1330;
inline constexpr int kReadingCancelled = 2230;

// Parameters
inline constexpr int kDataFormat = 122;
inline constexpr int kFactoryText = 138;
inline constexpr int kFirmwareVersion = 139;
inline constexpr int kResolution = 140;
inline constexpr int kStrokeLength = 142;
inline constexpr int kGradient = 143;
inline constexpr int kScaleFactor = 145;
inline constexpr int kFactoryTextP = 147;
inline constexpr int kCycleCodeZ = 148;
inline constexpr int kOffset = 149;
inline constexpr int kCycleCodeM = 150;
inline constexpr int kFactoryValueJ = 151;
inline constexpr int kAdvancedSetup = 153;
inline constexpr int kFactoryValueO = 154;

// Parts of parameters
inline constexpr int kMeasurementMode = 127;
inline constexpr int kMultiplier = 133;
inline constexpr int kDataBits = 169;
inline constexpr int kFormat = 173;
inline constexpr int kMeasurementDirection = 174;
inline constexpr int kErrorSkipCount = 176;
inline constexpr int kNumberOfMagnets = 177;
inline constexpr int kExtension = 178;
inline constexpr int kSensorPackage = 215;
inline constexpr int kCycleCodeMSuffix = 216;

// Values of parameters
inline constexpr int kBitsGray = 124;
inline constexpr int kBitsBinary = 125;
inline constexpr int kReverse = 128;
inline constexpr int kForward = 129;
inline constexpr int kSynchronous = 130;
inline constexpr int kPositionStream = 131;
inline constexpr int kAsynchronous = 132;
inline constexpr int kTimesEight = 134;
inline constexpr int kTimesTwo = 135;
inline constexpr int kTimesFour = 136;
inline constexpr int kTimesOne = 137;
inline constexpr int kNotApplicable = 152;
inline constexpr int kOneMagnet = 155;
inline constexpr int kTwoMagnets = 156;
inline constexpr int kNormalOutput = 157;
inline constexpr int kDifferentialPosition = 158;
inline constexpr int kVelocity = 159;
inline constexpr int kUnknownMagnets = 160;
inline constexpr int kUnknownOutput = 161;
inline constexpr int kNoExtension = 162;
inline constexpr int kParity = 163;
inline constexpr int kTemperature = 164;
inline constexpr int kUnknownExtension = 165;
inline constexpr int kBinary = 171;
inline constexpr int kGray = 172;

// Units
inline constexpr int kMillimetres = 141;
inline constexpr int kVelocityUnit = 144;
inline constexpr int kHexadecimal = 146;
inline constexpr int kResolutionUnit = 175;
inline constexpr int kMultiplierUnit = 219;

// Lists of parameters
inline constexpr int kParameterHeader = 111;
inline constexpr int kValueHeader = 112;
inline constexpr int kUnitHeader = 113;

// Pages
inline constexpr int kSensorInformation = 110;
inline constexpr int kOutputSetup = 168;
inline constexpr int kCommLog = 188;
inline constexpr int kFactoryParameters = 214;
inline constexpr int kTemperatureCompensation = 253;
inline constexpr int kMagnetPosition = 261;
inline constexpr int kPageListName = 1009;
inline constexpr int kSensorValuesName = 1020;

// Magnet position
inline constexpr int kPositionCaption = 262;
inline constexpr int kPositionNote = 263;
inline constexpr int kPositionNotIdentified = 1100;
inline constexpr int kSwitchSupply = 1102;
inline constexpr int kNoteName = 1103;
inline constexpr int kPositionDescription = 1104;
inline constexpr int kReadingFormat = 1815;
inline constexpr int kWritingStreamFormat = 1816;
inline constexpr int kStoringFormat = 1817;
inline constexpr int kRestartingSensor = 1818;
inline constexpr int kAwaitingStream = 1819;
inline constexpr int kEndingStream = 1820;
inline constexpr int kWritingOwnFormat = 1821;
inline constexpr int kTimeShown = 1830;
inline constexpr int kSeconds = 1831;
inline constexpr int kMinutes = 1832;
inline constexpr int kWholeRecording = 1833;
inline constexpr int kHoldRange = 1834;
inline constexpr int kPause = 1835;
inline constexpr int kZeroHere = 1836;
inline constexpr int kRecord = 1837;
inline constexpr int kStopRecording = 1838;
inline constexpr int kOpenRecording = 1839;
inline constexpr int kMinimum = 1840;
inline constexpr int kMaximum = 1841;
inline constexpr int kSpan = 1842;
inline constexpr int kMean = 1843;
inline constexpr int kDeviation = 1844;
inline constexpr int kPositionsPerSecond = 1845;
inline constexpr int kMalformedFrames = 1846;
inline constexpr int kCursorTime = 1847;
inline constexpr int kCursorPosition = 1848;
inline constexpr int kTraceName = 1849;
inline constexpr int kNoPositions = 1850;
inline constexpr int kRelativeTo = 1851;
inline constexpr int kRecordingEnded = 1852;
inline constexpr int kNoRecording = 1853;
inline constexpr int kRecordingDamaged = 1854;
inline constexpr int kRecordingTitle = 1855;
inline constexpr int kRecordingHead = 1856;
inline constexpr int kAllDecimals = 1857;
inline constexpr int kRecordingFilter = 1858;
inline constexpr int kMillimetresPerSecond = 1859;
inline constexpr int kSecondsUnit = 1860;
inline constexpr int kLongestGap = 1861;
inline constexpr int kRecorded = 1862;

// Output setup
inline constexpr int kUnlock = 179;
inline constexpr int kValueMissing = 181;
inline constexpr int kResolutionTooFine = 182;
inline constexpr int kModeNotOffered = 183;
inline constexpr int kPasswordTitle = 228;
inline constexpr int kPasswordWrong = 235;
inline constexpr int kPasswordPrompt = 240;
inline constexpr int kModeNotInReverse = 242;
inline constexpr int kAskForParity = 264;
inline constexpr int kAskForMode = 265;
inline constexpr int kPasswordName = 1200;
inline constexpr int kSkipCountRange = 1204;
inline constexpr int kDoesNotFit = 1205;

// Calculation of the offset
inline constexpr int kOffsetNote = 184;
inline constexpr int kOffsetTitle = 185;
inline constexpr int kSeDistance = 186;
inline constexpr int kDeadZone = 187;

// Factory parameters
inline constexpr int kZeroToTwo = 243;
inline constexpr int kTooLong = 1302;
inline constexpr int kExactLength = 1303;
inline constexpr int kDigitsOnly = 1304;
inline constexpr int kMultiplierValues = 1305;
inline constexpr int kHexRange = 1306;
inline constexpr int kNumberRange = 1307;
inline constexpr int kCharactersOnly = 1308;

// Communications log
inline constexpr int kClear = 189;
inline constexpr int kSaveToDisk = 190;
inline constexpr int kTextFileFilter = 191;
inline constexpr int kCopy = 1406;
inline constexpr int kDroppedLines = 2200;

// Manual communications
inline constexpr int kSend = 248;
inline constexpr int kReceive = 249;
inline constexpr int kExecute = 250;
inline constexpr int kManualCommunications = 251;
inline constexpr int kSentNotHex = 1400;
inline constexpr int kFieldSentAs = 1401;
inline constexpr int kNothingSent = 1402;
inline constexpr int kReplyCut = 1403;
inline constexpr int kMarkName = 1404;
inline constexpr int kOutcomeName = 1405;
inline constexpr int kExchangeLost = 1407;

// Files
inline constexpr int kFileNotOpened = 192;
inline constexpr int kFileNotWritten = 1320;
inline constexpr int kFileNotRead = 1321;

// Backup
inline constexpr int kSavingBackup = 210;
inline constexpr int kRestoringBackup = 211;
inline constexpr int kBackupFileFilter = 212;
inline constexpr int kNoBackupFile = 213;
inline constexpr int kBackupUnfit = 1322;
inline constexpr int kBackupMissing = 1323;
inline constexpr int kBackupNotUsable = 1324;
inline constexpr int kSaveBackupTitle = 1325;
inline constexpr int kRestoreBackupTitle = 1326;
inline constexpr int kNothingSaved = 1328;
inline constexpr int kProgressName = 1329;

// Comparison with a backup, and review of a restore
inline constexpr int kCompareCommand = 1730;
inline constexpr int kCompareTitle = 1731;
inline constexpr int kChangedSinceReview = 1732;
inline constexpr int kReviewTitle = 1733;
inline constexpr int kPutBackTitle = 1734;
inline constexpr int kFileHeader = 1736;
inline constexpr int kEarlierHeader = 1737;
inline constexpr int kInWords = 1738;
inline constexpr int kComparison = 1739;
inline constexpr int kValueDiffers = 1740;
inline constexpr int kValueEqual = 1741;
inline constexpr int kNameHeader = 1742;
inline constexpr int kToBeWritten = 1743;
inline constexpr int kStays = 1744;
inline constexpr int kOwnMultiplier = 1745;
inline constexpr int kStreamNotWritten = 1746;
inline constexpr int kOwnGradient = 1747;
inline constexpr int kOwnLength = 1748;
inline constexpr int kSameSensor = 1749;
inline constexpr int kPerhapsAnotherSensor = 1750;
inline constexpr int kAllParameters = 1751;
inline constexpr int kOutputSettingsOnly = 1752;
inline constexpr int kWriteButton = 1753;
inline constexpr int kComparisonFilter = 1754;
inline constexpr int kNotInBackup = 1755;
inline constexpr int kNotOfThisType = 2269;
inline constexpr int kNotAsThen = 1756;
inline constexpr int kOffsetToBeCalculated = 1757;
inline constexpr int kNothingDiffers = 1758;
inline constexpr int kStateOfOtherType = 1759;
inline constexpr int kNotOffered = 1870;

// Safe writes
inline constexpr int kCheckingSensor = 1700;
inline constexpr int kRestarting = 1701;
inline constexpr int kComparing = 1702;
inline constexpr int kVerified = 1703;
inline constexpr int kDiffers = 1704;
inline constexpr int kNotChecked = 1705;
inline constexpr int kNothingWritten = 1706;
inline constexpr int kNothingChanged = 1707;
inline constexpr int kDifference = 1708;
inline constexpr int kUnanswered = 1709;
inline constexpr int kNotRestarted = 1710;
inline constexpr int kNotReadBack = 1711;
inline constexpr int kAnotherSensor = 1712;
inline constexpr int kClosedBefore = 1713;
inline constexpr int kSafeWritesOff = 1714;
inline constexpr int kLostBeforeChecked = 1715;
inline constexpr int kUndivided = 1716;
inline constexpr int kSensorHasChanged = 1717;
inline constexpr int kNotKept = 1718;
inline constexpr int kNotAllKept = 1719;
inline constexpr int kWriteAllTheSame = 1720;
inline constexpr int kDoNotWrite = 1721;
inline constexpr int kWriteAgain = 1722;
inline constexpr int kPutBack = 1723;
inline constexpr int kCounts = 1724;
inline constexpr int kNoticeName = 1725;
inline constexpr int kAnotherConnected = 1726;
inline constexpr int kAnotherPort = 2266;
inline constexpr int kOtherAnswers = 2268;

// Earlier states of sensors
inline constexpr int kEarlierStatesItem = 1760;
inline constexpr int kEarlierStatesTitle = 1761;
inline constexpr int kOnlyConnected = 1762;
inline constexpr int kTimeHeader = 1763;
inline constexpr int kDeviceHeader = 1764;
inline constexpr int kRevisionHeader = 1765;
inline constexpr int kWriterHeader = 1766;
inline constexpr int kWrittenHeader = 1767;
inline constexpr int kOutcomeHeader = 1768;
inline constexpr int kBeforeHeader = 1769;
inline constexpr int kRawHeader = 1770;
inline constexpr int kUnfinished = 1771;
inline constexpr int kEntriesNotRead = 1772;
inline constexpr int kDeleteEntry = 1773;
inline constexpr int kAskToDelete = 1774;
inline constexpr int kClose = 1775;
inline constexpr int kUnfinishedWrite = 1776;
inline constexpr int kShow = 1777;
inline constexpr int kStatePutBack = 1778;
inline constexpr int kCommandLine = 1779;
// Entries that are not applied
inline constexpr int kEntryCount = 1780;
inline constexpr int kAskToDiscard = 1781;
inline constexpr int kStay = 1782;
inline constexpr int kDiscard = 1783;
inline constexpr int kAskToDiscardTables = 2260;
inline constexpr int kEndsWithoutPort = 2267; ///< before these questions
inline constexpr int kAskToReadOver = 2261;
inline constexpr int kValueRead = 1784;
inline constexpr int kNoneRead = 1785;
inline constexpr int kNothingChangedHere = 1786;
// The offset under a multiplier
inline constexpr int kOffsetMultiplied = 1800;
inline constexpr int kOffsetSoFar = 1801;
inline constexpr int kOffsetKept = 1802;
inline constexpr int kOffsetTimes = 1803;
inline constexpr int kKeepLength = 1804;
inline constexpr int kWriteMultiplied = 1805;

// Temperature compensation
inline constexpr int kTables = 252;
inline constexpr int kLookupRow = 254;
inline constexpr int kLookupPoint = 255;
inline constexpr int kLookupValue = 256;
inline constexpr int kTableFileFilter = 257;
inline constexpr int kNotATable = 258;
inline constexpr int kArrayRow = 259;
inline constexpr int kArrayValue = 260;
inline constexpr int kEnableCompensation = 1021;
inline constexpr int kLookupTable = 1022;
inline constexpr int kCompensationArray = 1023;
inline constexpr int kWriteToSensor = 1024;
inline constexpr int kWriteToFile = 1025;
inline constexpr int kReadFromFile = 1026;
inline constexpr int kRowsIgnored = 1502;
inline constexpr int kNoFunction = 1503;
inline constexpr int kOtherThanTyped = 1510;

// Display unit
inline constexpr int kDisplayUnit = 246;
inline constexpr int kDisplaySetUpFailed = 247;
inline constexpr int kPortIsSensors = 1600;
inline constexpr int kDisplayPortGone = 1601;
inline constexpr int kPortIsDisplays = 1602;
inline constexpr int kDisplayReading = 1603;
inline constexpr int kDisplayAcknowledged = 1610;
inline constexpr int kDisplayNotAcknowledged = 1611;
inline constexpr int kDisplayUnitNode = 1612;

// Settings
inline constexpr int kSettingsCommand = 1900;
inline constexpr int kSettingsTitle = 1901;
inline constexpr int kSensorTypesTab = 1902;
inline constexpr int kGeneralTab = 1903;
inline constexpr int kPortsTab = 1904;
inline constexpr int kPackagesTab = 1905;
inline constexpr int kDisplayUnitTab = 1906;
inline constexpr int kLowestRevision = 1908;
inline constexpr int kHighestRevision = 1909;
inline constexpr int kConnectedRevision = 1910;
inline constexpr int kNoRevision = 1911;
inline constexpr int kRangesOverlap = 1912;
inline constexpr int kSupplyByHand = 1913;
inline constexpr int kSafeWritesBox = 1914;
inline constexpr int kTempCompBox = 1915;
inline constexpr int kDisplayUnitBox = 1916;
inline constexpr int kNodeLabel = 1917;
inline constexpr int kDevicePathHeader = 1918;
inline constexpr int kDescriptionHeader = 1919;
inline constexpr int kComNumberHeader = 1920;
inline constexpr int kNotPresent = 1921;
inline constexpr int kAdd = 1922;
inline constexpr int kRemove = 1923;
inline constexpr int kImport = 1924;
inline constexpr int kUseSitesSettings = 1925;
inline constexpr int kSettingsFrom = 1926;
inline constexpr int kSettingsCopied = 1927;
inline constexpr int kSettingsReadOnly = 1928;
inline constexpr int kSettingsFileFilter = 1929;
inline constexpr int kLowAboveHigh = 1930;
inline constexpr int kNumberTwice = 1931;
inline constexpr int kNoComNumber = 1932;
inline constexpr int kPortIsBoths = 1933;
inline constexpr int kPackageNoNumber = 1934;
inline constexpr int kPackageUnnamed = 1935;
inline constexpr int kSettingsChanged = 1936;
inline constexpr int kOverwrite = 1937;
inline constexpr int kReadAgain = 1938;
inline constexpr int kAskForTables = 1939;
inline constexpr int kAskForSites = 1940;
inline constexpr int kPortMoved = 1941;
inline constexpr int kSettingsInUse = 1942;
inline constexpr int kNoPackagesInFile = 1943;
inline constexpr int kImportTitle = 1944;

// The conversation with the sensor
inline constexpr int kBeingConnected = 1028;
inline constexpr int kConnectedLater = 1029;
inline constexpr int kOutsideBounds = 1030;
inline constexpr int kPortStuck = 1031;
inline constexpr int kFormatNotStored = 1105;
inline constexpr int kStreamNotEnded = 1106;
inline constexpr int kKeptFormat = 1107;
inline constexpr int kTryAgain = 1108;
inline constexpr int kForget = 1109;
inline constexpr int kForgetFormat = 1110;
inline constexpr int kFormatNotRead = 1111;
inline constexpr int kStreamingFormat = 1112;
inline constexpr int kSavedDoubtful = 1331;
inline constexpr int kWriteDoubtful = 1332;

// The command line
inline constexpr int kPortOption = 2000;
inline constexpr int kJsonOption = 2001;
inline constexpr int kTypeOption = 2002;
inline constexpr int kManualPowerOption = 2003;
inline constexpr int kWaitOption = 2004;
inline constexpr int kLogOption = 2005;
inline constexpr int kSettingsOption = 2006;
inline constexpr int kLanguageOption = 2007;
inline constexpr int kYesOption = 2008;
inline constexpr int kDryRunOption = 2009;
inline constexpr int kHelpOption = 2010;
inline constexpr int kVersionOption = 2011;
inline constexpr int kPortsDescription = 2012;
inline constexpr int kInfoDescription = 2013;
inline constexpr int kReadDescription = 2014;
inline constexpr int kBackupDescription = 2015;
inline constexpr int kCompareDescription = 2016;
inline constexpr int kConvertDescription = 2017;
inline constexpr int kBadOption = 2020;
inline constexpr int kPortNeeded = 2021;
inline constexpr int kWrongArguments = 2022;
inline constexpr int kNobodyAtSupply = 2023;
inline constexpr int kNoSuchCommand = 2024;
inline constexpr int kNoLanguage = 2025;
inline constexpr int kNoSuchPort = 2026;
inline constexpr int kSwitchOffHere = 2027;
inline constexpr int kSwitchOnHere = 2028;
inline constexpr int kOtherType = 2029;
inline constexpr int kInterrupted = 2030;
inline constexpr int kOutputFailed = 2031;
inline constexpr int kYesWord = 2032;
inline constexpr int kFileExists = 2033;
inline constexpr int kFileNotOverwritten = 2034;
inline constexpr int kNoParameter = 2035;
inline constexpr int kNeitherFile = 2036;
inline constexpr int kSensorOfType = 2037;
inline constexpr int kSensorByHand = 2038;
inline constexpr int kSensorNotIdentified = 2039;
inline constexpr int kAllEqual = 2040;
inline constexpr int kNotThere = 2041;
inline constexpr int kNoSettingsFile = 2042;
// What a value means
inline constexpr int kIsHexadecimal = 2100;
inline constexpr int kRevisionMeaning = 2101;
inline constexpr int kScaleMeaning = 2102;
inline constexpr int kScaleFollows = 2103;
inline constexpr int kCodeOfStroke = 2104;
inline constexpr int kOneOrOther = 2105;
inline constexpr int kCodeOfNoStroke = 2106;
inline constexpr int kAsRead = 2107;

// Manual communications, for the hand
inline constexpr int kReadParameter = 2108;
inline constexpr int kReceivedAsText = 2109;
inline constexpr int kSendHint = 2110;

// Tables
inline constexpr int kCellsLeftOut = 2111;
inline constexpr int kPaste = 2112;
inline constexpr int kFileWillHold = 2113;

// A line of the communications log, in words
inline constexpr int kLineInWords = 2114;
inline constexpr int kCopyWithTimes = 2115;
inline constexpr int kFollow = 2116;
inline constexpr int kFind = 2117;
inline constexpr int kFindNext = 2118;
inline constexpr int kFindPrevious = 2119;
inline constexpr int kFoundOf = 2120;
inline constexpr int kFoundSoFar = 2121;
inline constexpr int kNotFound = 2122;
inline constexpr int kReadOf = 2123;
inline constexpr int kWriteOf = 2124;
inline constexpr int kAnswerOf = 2125;
inline constexpr int kCommandOf = 2126;
inline constexpr int kPositionOf = 2127;
inline constexpr int kSupplyLineFailed = 2128;
inline constexpr int kPurgeFailed = 2129;
inline constexpr int kSendingFailed = 2130;
inline constexpr int kReceivingFailed = 2131;
inline constexpr int kFrameCut = 2132;
inline constexpr int kAnswerCount = 2133;
inline constexpr int kAnswerEnd = 2134;
inline constexpr int kValueTooLong = 2135;
inline constexpr int kIsOfType = 2136;
inline constexpr int kIsOfNoType = 2137;
inline constexpr int kNothingReceived = 2138;
inline constexpr int kNoWholeAnswer = 2139;

// Backup files, report and support file
inline constexpr int kOpenBackupCommand = 2140;
inline constexpr int kBackupFileTitle = 2141;
inline constexpr int kReportCommand = 2142;
inline constexpr int kReportTitle = 2143;
inline constexpr int kReportFilter = 2144;
inline constexpr int kReportNote = 2145;
inline constexpr int kReportTime = 2146;
inline constexpr int kReportProgram = 2147;
inline constexpr int kLastVerification = 2148;
inline constexpr int kNoWriteInJournal = 2149;
inline constexpr int kSupportCommand = 2150;
inline constexpr int kSupportTitle = 2151;
inline constexpr int kSupportHint = 2152;
inline constexpr int kVersionsHeading = 2153;
inline constexpr int kLastStateHeading = 2155;
inline constexpr int kLastLines = 2156;
inline constexpr int kTypeOfSensor = 2157;
inline constexpr int kRestoreDescription = 2060;
inline constexpr int kSetDescription = 2061;
inline constexpr int kWatchDescription = 2062;
inline constexpr int kJournalDescription = 2063;
inline constexpr int kNoJournalOption = 2064;
inline constexpr int kPasswordOption = 2065;
inline constexpr int kOffsetCountOption = 2066;
inline constexpr int kWatchTimeOption = 2067;
inline constexpr int kCsvOption = 2068;
inline constexpr int kAllOrOutput = 2070;
inline constexpr int kAskToWrite = 2071;
inline constexpr int kNotConfirmed = 2072;
inline constexpr int kNoJournalWrites = 2073;
inline constexpr int kOnlyAllUnseen = 2074;
inline constexpr int kNoSetting = 2075;
inline constexpr int kBadSetting = 2076;
inline constexpr int kNotOfType = 2077;
inline constexpr int kOffsetNeeded = 2078;
inline constexpr int kChooseOffsetCount = 2079;
inline constexpr int kNamedTwice = 2080;
inline constexpr int kThenPause = 2081;
inline constexpr int kNoEntry = 2082;

} // namespace pelorin::strings

namespace pelorin {

/// The number of the text that an enumerator stands for.
template <class Text>
[[nodiscard]] constexpr int textNumberOf(Text text)
{
    static_assert(std::is_enum_v<Text>);
    return static_cast<int>(text);
}

} // namespace pelorin

<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name></name>
    <message id="100">
        <source>Pelorin</source>
        <translation>Pelorin</translation>
    </message>
    <message id="101">
        <source>Port %1 could not be opened (system error %2).</source>
        <extracomment>%1 port, %2 system error code</extracomment>
        <translation>Port %1 could not be opened (system error %2).</translation>
    </message>
    <message id="102">
        <source>The line settings of port %1 could not be set (system error %2).</source>
        <extracomment>%1 port, %2 system error code</extracomment>
        <translation>The line settings of port %1 could not be set (system error %2).</translation>
    </message>
    <message id="103">
        <source>The time-outs of port %1 could not be set (system error %2).</source>
        <extracomment>%1 port, %2 system error code</extracomment>
        <translation>The time-outs of port %1 could not be set (system error %2).</translation>
    </message>
    <message id="104">
        <source>The queue sizes of port %1 could not be set (system error %2).</source>
        <extracomment>%1 port, %2 system error code</extracomment>
        <translation>The queue sizes of port %1 could not be set (system error %2).</translation>
    </message>
    <message id="105">
        <source>The communication could not be started (system error %1).</source>
        <extracomment>%1 system error code</extracomment>
        <translation>The communication could not be started (system error %1).</translation>
    </message>
    <message id="106">
        <source>E&amp;xit</source>
        <extracomment>Item on the menu bar</extracomment>
        <translation>E&amp;xit</translation>
    </message>
    <message id="107">
        <source>Select Communications Port</source>
        <extracomment>Menu item and dialog title, so without a mnemonic</extracomment>
        <translation>Select Communications Port</translation>
    </message>
    <message id="108">
        <source>&amp;Connection</source>
        <extracomment>Menu</extracomment>
        <translation>&amp;Connection</translation>
    </message>
    <message id="109">
        <source>&amp;Connect</source>
        <extracomment>Menu item</extracomment>
        <translation>&amp;Connect</translation>
    </message>
    <message id="110">
        <source>Sensor Information</source>
        <extracomment>Page</extracomment>
        <translation>Sensor Information</translation>
    </message>
    <message id="111">
        <source>Parameter</source>
        <extracomment>Column heading</extracomment>
        <translation>Parameter</translation>
    </message>
    <message id="112">
        <source>Value</source>
        <extracomment>Column heading</extracomment>
        <translation>Value</translation>
    </message>
    <message id="113">
        <source>Unit</source>
        <extracomment>Column heading</extracomment>
        <translation>Unit</translation>
    </message>
    <message id="114">
        <source>COM%1</source>
        <extracomment>%1 port number</extracomment>
        <translation>COM%1</translation>
    </message>
    <message id="115">
        <source>No port</source>
        <extracomment>Status bar, in place of the port</extracomment>
        <translation>No port</translation>
    </message>
    <message id="116">
        <source>Connecting to the sensor…</source>
        <extracomment>Status bar</extracomment>
        <translation>Connecting to the sensor…</translation>
    </message>
    <message id="117">
        <source>Connected to the sensor.</source>
        <extracomment>Status bar</extracomment>
        <translation>Connected to the sensor.</translation>
    </message>
    <message id="118">
        <source>Not connected to the sensor.</source>
        <extracomment>Status bar</extracomment>
        <translation>Not connected to the sensor.</translation>
    </message>
    <message id="119">
        <source>Pelorin</source>
        <extracomment>Title of the main window</extracomment>
        <translation>Pelorin</translation>
    </message>
    <message id="120">
        <source>Cancel</source>
        <extracomment>Button</extracomment>
        <translation>Cancel</translation>
    </message>
    <message id="121">
        <source>Reading the sensor's parameters…</source>
        <extracomment>Status bar</extracomment>
        <translation>Reading the sensor's parameters…</translation>
    </message>
    <message id="122">
        <source>Data Format</source>
        <extracomment>Group and table row</extracomment>
        <translation>Data Format</translation>
    </message>
    <message id="123">
        <source>Parameter %1 could not be read from the sensor.</source>
        <extracomment>%1 byte value of the parameter's identifier</extracomment>
        <translation>Parameter %1 could not be read from the sensor.</translation>
    </message>
    <message id="124">
        <source>%1 bits, Gray code</source>
        <extracomment>%1 number of data bits</extracomment>
        <translation>%1 bits, Gray code</translation>
    </message>
    <message id="125">
        <source>%1 bits, binary</source>
        <extracomment>%1 number of data bits</extracomment>
        <translation>%1 bits, binary</translation>
    </message>
    <message id="126">
        <source>Ready.</source>
        <extracomment>Status bar, after reading or writing</extracomment>
        <translation>Ready.</translation>
    </message>
    <message id="127">
        <source>Measurement Mode</source>
        <extracomment>Caption, group and table row</extracomment>
        <translation>Measurement Mode</translation>
    </message>
    <message id="128">
        <source>Reverse</source>
        <extracomment>Direction of measurement</extracomment>
        <translation>Reverse</translation>
    </message>
    <message id="129">
        <source>Forward</source>
        <extracomment>Direction of measurement</extracomment>
        <translation>Forward</translation>
    </message>
    <message id="130">
        <source>Synchronous</source>
        <extracomment>Measurement mode</extracomment>
        <translation>Synchronous</translation>
    </message>
    <message id="131">
        <source>Position stream</source>
        <extracomment>Measurement mode, while the sensor streams positions</extracomment>
        <translation>Position stream</translation>
    </message>
    <message id="132">
        <source>Asynchronous</source>
        <extracomment>Measurement mode</extracomment>
        <translation>Asynchronous</translation>
    </message>
    <message id="133">
        <source>Multiplier</source>
        <extracomment>Table row</extracomment>
        <translation>Multiplier</translation>
    </message>
    <message id="134">
        <source>× 8</source>
        <extracomment>Multiplier</extracomment>
        <translation>× 8</translation>
    </message>
    <message id="135">
        <source>× 2</source>
        <extracomment>Multiplier</extracomment>
        <translation>× 2</translation>
    </message>
    <message id="136">
        <source>× 4</source>
        <extracomment>Multiplier</extracomment>
        <translation>× 4</translation>
    </message>
    <message id="137">
        <source>× 1</source>
        <extracomment>Multiplier</extracomment>
        <translation>× 1</translation>
    </message>
    <message id="138">
        <source>Factory Text</source>
        <extracomment>Table row, parameter F</extracomment>
        <translation>Factory Text</translation>
    </message>
    <message id="139">
        <source>Firmware Version</source>
        <extracomment>Table row, parameter V</extracomment>
        <translation>Firmware Version</translation>
    </message>
    <message id="140">
        <source>Resolution</source>
        <extracomment>Caption and table row</extracomment>
        <translation>Resolution</translation>
    </message>
    <message id="141">
        <source>mm</source>
        <extracomment>Unit</extracomment>
        <translation>mm</translation>
    </message>
    <message id="142">
        <source>Stroke Length</source>
        <extracomment>Caption and table row</extracomment>
        <translation>Stroke Length</translation>
    </message>
    <message id="143">
        <source>Gradient</source>
        <extracomment>Table row, parameter U: speed of the pulse in the waveguide</extracomment>
        <translation>Gradient</translation>
    </message>
    <message id="144">
        <source>m/s (µs/in)</source>
        <extracomment>Unit of the pulse velocity, in parentheses that of its reciprocal</extracomment>
        <translation>m/s (µs/in)</translation>
    </message>
    <message id="145">
        <source>Scale Factor</source>
        <extracomment>Table row, parameter S</extracomment>
        <translation>Scale Factor</translation>
    </message>
    <message id="146">
        <source>hex</source>
        <extracomment>Unit of a value shown in hexadecimal digits</extracomment>
        <translation>hex</translation>
    </message>
    <message id="147">
        <source>Factory Text P</source>
        <extracomment>Table row, parameter P</extracomment>
        <translation>Factory Text P</translation>
    </message>
    <message id="148">
        <source>Cycle Code Z</source>
        <extracomment>Table row, parameter Z</extracomment>
        <translation>Cycle Code Z</translation>
    </message>
    <message id="149">
        <source>Offset</source>
        <extracomment>Table row, parameter N</extracomment>
        <translation>Offset</translation>
    </message>
    <message id="150">
        <source>Cycle Code M</source>
        <extracomment>Table row, parameter M</extracomment>
        <translation>Cycle Code M</translation>
    </message>
    <message id="151">
        <source>Factory Value J</source>
        <extracomment>Table row, parameter J</extracomment>
        <translation>Factory Value J</translation>
    </message>
    <message id="152">
        <source>Not applicable</source>
        <extracomment>In place of a value that this type of sensor does not have</extracomment>
        <translation>Not applicable</translation>
    </message>
    <message id="153">
        <source>Advanced Measurement Setup</source>
        <extracomment>Group and table row, parameter K</extracomment>
        <translation>Advanced Measurement Setup</translation>
    </message>
    <message id="154">
        <source>Factory Value O</source>
        <extracomment>Table row, parameter O</extracomment>
        <translation>Factory Value O</translation>
    </message>
    <message id="155">
        <source>1 Magnet</source>
        <extracomment>Option and table cell</extracomment>
        <translation>1 Magnet</translation>
    </message>
    <message id="156">
        <source>2 Magnets</source>
        <extracomment>Option and table cell</extracomment>
        <translation>2 Magnets</translation>
    </message>
    <message id="157">
        <source>Normal Position Output</source>
        <extracomment>Option and table cell</extracomment>
        <translation>Normal Position Output</translation>
    </message>
    <message id="158">
        <source>Differential Position</source>
        <extracomment>Option and table cell</extracomment>
        <translation>Differential Position</translation>
    </message>
    <message id="159">
        <source>Velocity</source>
        <extracomment>Option and table cell</extracomment>
        <translation>Velocity</translation>
    </message>
    <message id="160">
        <source>Unknown number of magnets</source>
        <extracomment>Table cell</extracomment>
        <translation>Unknown number of magnets</translation>
    </message>
    <message id="161">
        <source>Unknown output</source>
        <extracomment>Table cell</extracomment>
        <translation>Unknown output</translation>
    </message>
    <message id="162">
        <source>No Extension</source>
        <extracomment>Option and table cell</extracomment>
        <translation>No Extension</translation>
    </message>
    <message id="163">
        <source>Parity</source>
        <extracomment>Option and table cell</extracomment>
        <translation>Parity</translation>
    </message>
    <message id="164">
        <source>Temperature</source>
        <extracomment>Option and table cell</extracomment>
        <translation>Temperature</translation>
    </message>
    <message id="165">
        <source>Unknown extension</source>
        <extracomment>Table cell</extracomment>
        <translation>Unknown extension</translation>
    </message>
    <message id="166">
        <source>Refresh</source>
        <extracomment>Button</extracomment>
        <translation>Refresh</translation>
    </message>
    <message id="167">
        <source>COM%1 could not be opened.

Abort ends the program, Retry tries the same port again, Ignore lets you select another port.</source>
        <extracomment>%1 port number; names the buttons Abort, Retry and Ignore as the toolkit translates them</extracomment>
        <translation>COM%1 could not be opened.

Abort ends the program, Retry tries the same port again, Ignore lets you select another port.</translation>
    </message>
    <message id="168">
        <source>Output Setup</source>
        <extracomment>Page</extracomment>
        <translation>Output Setup</translation>
    </message>
    <message id="169">
        <source>Data Bits</source>
        <extracomment>Caption</extracomment>
        <translation>Data Bits</translation>
    </message>
    <message id="170">
        <source>Parameter %1 could not be written to the sensor.</source>
        <extracomment>%1 byte value of the parameter's identifier</extracomment>
        <translation>Parameter %1 could not be written to the sensor.</translation>
    </message>
    <message id="171">
        <source>Binary</source>
        <extracomment>Output format</extracomment>
        <translation>Binary</translation>
    </message>
    <message id="172">
        <source>Gray code</source>
        <extracomment>Output format</extracomment>
        <translation>Gray code</translation>
    </message>
    <message id="173">
        <source>Format</source>
        <extracomment>Caption</extracomment>
        <translation>Format</translation>
    </message>
    <message id="174">
        <source>Measurement Direction</source>
        <extracomment>Caption</extracomment>
        <translation>Measurement Direction</translation>
    </message>
    <message id="175">
        <source>mm</source>
        <extracomment>Unit of the resolution</extracomment>
        <translation>mm</translation>
    </message>
    <message id="176">
        <source>Error Skip Count</source>
        <extracomment>Caption and table row</extracomment>
        <translation>Error Skip Count</translation>
    </message>
    <message id="177">
        <source>Number of Magnets</source>
        <extracomment>Group</extracomment>
        <translation>Number of Magnets</translation>
    </message>
    <message id="178">
        <source>Extension</source>
        <extracomment>Group</extracomment>
        <translation>Extension</translation>
    </message>
    <message id="179">
        <source>Unlock</source>
        <extracomment>Button</extracomment>
        <translation>Unlock</translation>
    </message>
    <message id="180">
        <source>Apply Changes</source>
        <extracomment>Button</extracomment>
        <translation>Apply Changes</translation>
    </message>
    <message id="181">
        <source>A value is missing. Please complete it first.</source>
        <extracomment>Message, with the incomplete field focused</extracomment>
        <translation>A value is missing. Please complete it first.</translation>
    </message>
    <message id="182">
        <source>This type of sensor does not offer a resolution finer than 0.010 mm.</source>
        <extracomment>Message</extracomment>
        <translation>This type of sensor does not offer a resolution finer than 0.010 mm.</translation>
    </message>
    <message id="183">
        <source>This type of sensor has no synchronous measurement mode.</source>
        <extracomment>Message</extracomment>
        <translation>This type of sensor has no synchronous measurement mode.</translation>
    </message>
    <message id="184">
        <source>The measurement direction changes, and the offset with it. Select the sensor package or enter the sensor's dimensions; the new offset is calculated from them.</source>
        <extracomment>Note in a dialog</extracomment>
        <translation>The measurement direction changes, and the offset with it. Select the sensor package or enter the sensor's dimensions; the new offset is calculated from them.</translation>
    </message>
    <message id="185">
        <source>Calculate Offset</source>
        <extracomment>Dialog title</extracomment>
        <translation>Calculate Offset</translation>
    </message>
    <message id="186">
        <source>SE Distance</source>
        <extracomment>Caption</extracomment>
        <translation>SE Distance</translation>
    </message>
    <message id="187">
        <source>Dead Zone</source>
        <extracomment>Caption</extracomment>
        <translation>Dead Zone</translation>
    </message>
    <message id="188">
        <source>Communications Log</source>
        <extracomment>Page</extracomment>
        <translation>Communications Log</translation>
    </message>
    <message id="189">
        <source>Clear</source>
        <extracomment>Button</extracomment>
        <translation>Clear</translation>
    </message>
    <message id="190">
        <source>Save To Disk</source>
        <extracomment>Button</extracomment>
        <translation>Save To Disk</translation>
    </message>
    <message id="191">
        <source>Text files (*.txt);;All files (*)</source>
        <extracomment>File filter</extracomment>
        <translation>Text files (*.txt);;All files (*)</translation>
    </message>
    <message id="192">
        <source>The file %1 could not be opened (system error %2: %3).</source>
        <extracomment>%1 path, %2 system error code, %3 its words</extracomment>
        <translation>The file %1 could not be opened (system error %2: %3).</translation>
    </message>
    <message id="193">
        <source>&amp;Refresh</source>
        <extracomment>Menu item</extracomment>
        <translation>&amp;Refresh</translation>
    </message>
    <message id="194">
        <source>&amp;View</source>
        <extracomment>Menu</extracomment>
        <translation>&amp;View</translation>
    </message>
    <message id="195">
        <source>&amp;Save Backup…</source>
        <extracomment>Menu item</extracomment>
        <translation>&amp;Save Backup…</translation>
    </message>
    <message id="196">
        <source>&amp;Restore Backup…</source>
        <extracomment>Menu item</extracomment>
        <translation>&amp;Restore Backup…</translation>
    </message>
    <message id="197">
        <source>Send Command &amp;E</source>
        <extracomment>Menu item</extracomment>
        <translation>Send Command &amp;E</translation>
    </message>
    <message id="198">
        <source>Send Command &amp;Q</source>
        <extracomment>Menu item</extracomment>
        <translation>Send Command &amp;Q</translation>
    </message>
    <message id="200">
        <source>&amp;Sensor</source>
        <extracomment>Menu</extracomment>
        <translation>&amp;Sensor</translation>
    </message>
    <message id="201">
        <source>&amp;Help</source>
        <extracomment>Menu item</extracomment>
        <translation>&amp;Help</translation>
    </message>
    <message id="202">
        <source>&amp;About…</source>
        <extracomment>Menu item</extracomment>
        <translation>&amp;About…</translation>
    </message>
    <message id="203">
        <source>&amp;Help</source>
        <extracomment>Menu</extracomment>
        <translation>&amp;Help</translation>
    </message>
    <message id="204">
        <source>&amp;English</source>
        <extracomment>Menu item, each language in its own words</extracomment>
        <translation>&amp;English</translation>
    </message>
    <message id="205">
        <source>&amp;Deutsch</source>
        <extracomment>Menu item, each language in its own words</extracomment>
        <translation>&amp;Deutsch</translation>
    </message>
    <message id="206">
        <source>&amp;Français</source>
        <extracomment>Menu item, each language in its own words</extracomment>
        <translation>&amp;Français</translation>
    </message>
    <message id="207">
        <source>E&amp;spañol</source>
        <extracomment>Menu item, each language in its own words</extracomment>
        <translation>E&amp;spañol</translation>
    </message>
    <message id="208">
        <source>&amp;Italiano</source>
        <extracomment>Menu item, each language in its own words</extracomment>
        <translation>&amp;Italiano</translation>
    </message>
    <message id="209">
        <source>&amp;Language</source>
        <extracomment>Menu</extracomment>
        <translation>&amp;Language</translation>
    </message>
    <message id="210">
        <source>Saving the sensor's parameters…</source>
        <extracomment>Progress dialog</extracomment>
        <translation>Saving the sensor's parameters…</translation>
    </message>
    <message id="211">
        <source>Restoring the sensor's parameters…</source>
        <extracomment>Progress dialog</extracomment>
        <translation>Restoring the sensor's parameters…</translation>
    </message>
    <message id="212">
        <source>Backup files (*.dat);;All files (*)</source>
        <extracomment>File filter</extracomment>
        <translation>Backup files (*.dat);;All files (*)</translation>
    </message>
    <message id="213">
        <source>This is not a backup file of Pelorin.</source>
        <extracomment>Message</extracomment>
        <translation>This is not a backup file of Pelorin.</translation>
    </message>
    <message id="214">
        <source>Factory Parameters</source>
        <extracomment>Page</extracomment>
        <translation>Factory Parameters</translation>
    </message>
    <message id="215">
        <source>Sensor Package</source>
        <extracomment>Caption and table row</extracomment>
        <translation>Sensor Package</translation>
    </message>
    <message id="216">
        <source>Cycle Code M, Suffix</source>
        <extracomment>Table row, last two digits of parameter M</extracomment>
        <translation>Cycle Code M, Suffix</translation>
    </message>
    <message id="217">
        <source>Writing to the sensor…</source>
        <extracomment>Status bar</extracomment>
        <translation>Writing to the sensor…</translation>
    </message>
    <message id="218">
        <source>About Pelorin</source>
        <extracomment>Dialog title</extracomment>
        <translation>About Pelorin</translation>
    </message>
    <message id="219">
        <source>0, 2, 4, 8</source>
        <extracomment>In place of a unit: the values that the multiplier may have</extracomment>
        <translation>0, 2, 4, 8</translation>
    </message>
    <message id="228">
        <source>Enter Password</source>
        <extracomment>Dialog title</extracomment>
        <translation>Enter Password</translation>
    </message>
    <message id="235">
        <source>The password is wrong.</source>
        <extracomment>Message</extracomment>
        <translation>The password is wrong.</translation>
    </message>
    <message id="238">
        <source>No help files are configured. The program starts without help.</source>
        <extracomment>Message</extracomment>
        <translation>No help files are configured. The program starts without help.</translation>
    </message>
    <message id="239">
        <source>The help could not be shown (language %1, error %2, detail %3).</source>
        <extracomment>%1 language code, %2 error code, %3 detail</extracomment>
        <translation>The help could not be shown (language %1, error %2, detail %3).</translation>
    </message>
    <message id="240">
        <source>Changing the error skip count is protected. Enter the password to unlock it.</source>
        <extracomment>Note in a dialog</extracomment>
        <translation>Changing the error skip count is protected. Enter the password to unlock it.</translation>
    </message>
    <message id="241">
        <source>OK</source>
        <extracomment>Button</extracomment>
        <translation>OK</translation>
    </message>
    <message id="242">
        <source>The synchronous measurement mode cannot be combined with the reverse direction.</source>
        <extracomment>Message</extracomment>
        <translation>The synchronous measurement mode cannot be combined with the reverse direction.</translation>
    </message>
    <message id="243">
        <source>This value must be 0, 1 or 2.</source>
        <extracomment>Message</extracomment>
        <translation>This value must be 0, 1 or 2.</translation>
    </message>
    <message id="244">
        <source>Switch the sensor's supply on now, then choose OK.</source>
        <extracomment>Message while the program calls the sensor</extracomment>
        <translation>Switch the sensor's supply on now, then choose OK.</translation>
    </message>
    <message id="245">
        <source>Switch the sensor's supply off, then choose OK. Choose Cancel if the sensor is ready for programming already.</source>
        <extracomment>Message with OK and Cancel</extracomment>
        <translation>Switch the sensor's supply off, then choose OK. Choose Cancel if the sensor is ready for programming already.</translation>
    </message>
    <message id="246">
        <source>QDL3 Display Unit</source>
        <extracomment>Menu item and window title, so without a mnemonic</extracomment>
        <translation>QDL3 Display Unit</translation>
    </message>
    <message id="247">
        <source>The display unit on %1 (node %2) did not acknowledge its set-up.</source>
        <extracomment>%1 port, %2 node</extracomment>
        <translation>The display unit on %1 (node %2) did not acknowledge its set-up.</translation>
    </message>
    <message id="248">
        <source>Send</source>
        <extracomment>Caption</extracomment>
        <translation>Send</translation>
    </message>
    <message id="249">
        <source>Receive</source>
        <extracomment>Caption</extracomment>
        <translation>Receive</translation>
    </message>
    <message id="250">
        <source>Execute</source>
        <extracomment>Button</extracomment>
        <translation>Execute</translation>
    </message>
    <message id="251">
        <source>Manual Communications</source>
        <extracomment>Menu item and dialog title, so without a mnemonic</extracomment>
        <translation>Manual Communications</translation>
    </message>
    <message id="252">
        <source>Tables</source>
        <extracomment>Tab</extracomment>
        <translation>Tables</translation>
    </message>
    <message id="253">
        <source>Temperature Compensation</source>
        <extracomment>Page</extracomment>
        <translation>Temperature Compensation</translation>
    </message>
    <message id="254">
        <source>Row</source>
        <extracomment>Column heading</extracomment>
        <translation>Row</translation>
    </message>
    <message id="255">
        <source>Point</source>
        <extracomment>Column heading</extracomment>
        <translation>Point</translation>
    </message>
    <message id="256">
        <source>Value</source>
        <extracomment>Column heading</extracomment>
        <translation>Value</translation>
    </message>
    <message id="257">
        <source>Lookup tables (*.csv);;All files (*)</source>
        <extracomment>File filter</extracomment>
        <translation>Lookup tables (*.csv);;All files (*)</translation>
    </message>
    <message id="258">
        <source>This is not a lookup table for temperature compensation.</source>
        <extracomment>Message</extracomment>
        <translation>This is not a lookup table for temperature compensation.</translation>
    </message>
    <message id="259">
        <source>Row</source>
        <extracomment>Column heading</extracomment>
        <translation>Row</translation>
    </message>
    <message id="260">
        <source>Value %1</source>
        <extracomment>Column heading, %1 number</extracomment>
        <translation>Value %1</translation>
    </message>
    <message id="261">
        <source>Magnet Position</source>
        <extracomment>Page</extracomment>
        <translation>Magnet Position</translation>
    </message>
    <message id="262">
        <source>Magnet position in mm</source>
        <extracomment>Caption</extracomment>
        <translation>Magnet position in mm</translation>
    </message>
    <message id="263">
        <source>While this page is shown, the sensor streams its position over the programming line. Its output settings are changed for that and written back when you leave the page. Do not disconnect the sensor before then.</source>
        <extracomment>Note on a page</extracomment>
        <translation>While this page is shown, the sensor streams its position over the programming line. Its output settings are changed for that and written back when you leave the page. Do not disconnect the sensor before then.</translation>
    </message>
    <message id="264">
        <source>The parity extension changes the SSI word that the sensor sends; the controller must be set up for it. Use the parity extension?</source>
        <extracomment>Question</extracomment>
        <translation>The parity extension changes the SSI word that the sensor sends; the controller must be set up for it. Use the parity extension?</translation>
    </message>
    <message id="265">
        <source>In the synchronous measurement mode the controller must clock the sensor regularly. Use the synchronous measurement mode?</source>
        <extracomment>Question</extracomment>
        <translation>In the synchronous measurement mode the controller must clock the sensor regularly. Use the synchronous measurement mode?</translation>
    </message>
    <message id="1000">
        <source>simulated</source>
        <extracomment>Stands beside the name of a simulated port</extracomment>
        <translation>simulated</translation>
    </message>
    <message id="1001">
        <source>You have no permission to open %1. Add your user to the group %2, then log in again.</source>
        <extracomment>%1 port, %2 group of users</extracomment>
        <translation>You have no permission to open %1. Add your user to the group %2, then log in again.</translation>
    </message>
    <message id="1002">
        <source>%1 is in use by another program.</source>
        <extracomment>%1 port</extracomment>
        <translation>%1 is in use by another program.</translation>
    </message>
    <message id="1003">
        <source>The settings file %1 is damaged in line %2. None of its settings are used.</source>
        <extracomment>%1 path, %2 line number</extracomment>
        <translation>The settings file %1 is damaged in line %2. None of its settings are used.</translation>
    </message>
    <message id="1004">
        <source>The profile %1 is damaged. Default values are used; a copy is kept beside it.</source>
        <extracomment>%1 path</extracomment>
        <translation>The profile %1 is damaged. Default values are used; a copy is kept beside it.</translation>
    </message>
    <message id="1005">
        <source>The sensor answered, but no firmware revision bounds are configured. Enter your site's bounds in the settings.</source>
        <extracomment>Tool tip</extracomment>
        <translation>The sensor answered, but no firmware revision bounds are configured. Enter your site's bounds in the settings.</translation>
    </message>
    <message id="1006">
        <source>Green: connected</source>
        <extracomment>State of the link light</extracomment>
        <translation>Green: connected</translation>
    </message>
    <message id="1007">
        <source>Red, blinking: not connected</source>
        <extracomment>State of the link light</extracomment>
        <translation>Red, blinking: not connected</translation>
    </message>
    <message id="1008">
        <source>Gray: no exchange yet</source>
        <extracomment>State of the link light</extracomment>
        <translation>Gray: no exchange yet</translation>
    </message>
    <message id="1009">
        <source>Pages</source>
        <extracomment>Accessible name of the page list</extracomment>
        <translation>Pages</translation>
    </message>
    <message id="1010">
        <source>Port:</source>
        <extracomment>Caption of the list of ports</extracomment>
        <translation>Port:</translation>
    </message>
    <message id="1012">
        <source>Operation abandoned: the connection to the sensor was lost.</source>
        <extracomment>Message</extracomment>
        <translation>Operation abandoned: the connection to the sensor was lost.</translation>
    </message>
    <message id="1013">
        <source>The sensor is not identified. Nothing was written.</source>
        <extracomment>Message</extracomment>
        <translation>The sensor is not identified. Nothing was written.</translation>
    </message>
    <message id="1014">
        <source>Pelorin Help</source>
        <extracomment>Window title</extracomment>
        <translation>Pelorin Help</translation>
    </message>
    <message id="1015">
        <source>Link light</source>
        <extracomment>Accessible name</extracomment>
        <translation>Link light</translation>
    </message>
    <message id="1016">
        <source>Program icon</source>
        <extracomment>Accessible name</extracomment>
        <translation>Program icon</translation>
    </message>
    <message id="1017">
        <source>Version:</source>
        <extracomment>Caption</extracomment>
        <translation>Version:</translation>
    </message>
    <message id="1018">
        <source>Program:</source>
        <extracomment>Caption</extracomment>
        <translation>Program:</translation>
    </message>
    <message id="1019">
        <source>No serial port is present. Plug the adapter in.</source>
        <translation>No serial port is present. Plug the adapter in.</translation>
    </message>
    <message id="1020">
        <source>Sensor values</source>
        <extracomment>Accessible name of the table of values</extracomment>
        <translation>Sensor values</translation>
    </message>
    <message id="1021">
        <source>Enable Compensation</source>
        <extracomment>Check box</extracomment>
        <translation>Enable Compensation</translation>
    </message>
    <message id="1022">
        <source>Lookup Table Arrays</source>
        <extracomment>Caption</extracomment>
        <translation>Lookup Table Arrays</translation>
    </message>
    <message id="1023">
        <source>Compensation Array</source>
        <extracomment>Caption</extracomment>
        <translation>Compensation Array</translation>
    </message>
    <message id="1024">
        <source>Write To Sensor</source>
        <extracomment>Button</extracomment>
        <translation>Write To Sensor</translation>
    </message>
    <message id="1025">
        <source>Write To File</source>
        <extracomment>Button</extracomment>
        <translation>Write To File</translation>
    </message>
    <message id="1026">
        <source>Read From File</source>
        <extracomment>Button</extracomment>
        <translation>Read From File</translation>
    </message>
    <message id="1027">
        <source>The file %1 cannot be read: %2. Its settings are not used.</source>
        <extracomment>%1 path, %2 reason</extracomment>
        <translation>The file %1 cannot be read: %2. Its settings are not used.</translation>
    </message>
    <message id="1028">
        <source>The sensor is being connected, so nothing else was done. Try again when that has ended.</source>
        <translation>The sensor is being connected, so nothing else was done. Try again when that has ended.</translation>
    </message>
    <message id="1029">
        <source>The connection to the sensor was lost. Nothing was sent. The sensor is connected again when this dialog is closed.</source>
        <translation>The connection to the sensor was lost. Nothing was sent. The sensor is connected again when this dialog is closed.</translation>
    </message>
    <message id="1030">
        <source>The sensor answered, but its firmware revision %1 lies in none of the configured ranges. Check your site's bounds in the settings.</source>
        <extracomment>%1 firmware revision, two hexadecimal digits</extracomment>
        <translation>The sensor answered, but its firmware revision %1 lies in none of the configured ranges. Check your site's bounds in the settings.</translation>
    </message>
    <message id="1031">
        <source>%1 could not be closed: its device does not react. Until it does, no program can open this port. Unplug the adapter.</source>
        <extracomment>%1 name of the port</extracomment>
        <translation>%1 could not be closed: its device does not react. Until it does, no program can open this port. Unplug the adapter.</translation>
    </message>
    <message id="1100">
        <source>The sensor is not identified. Connect it before its position is shown.</source>
        <translation>The sensor is not identified. Connect it before its position is shown.</translation>
    </message>
    <message id="1102">
        <source>Switch the sensor's supply off and on again now.</source>
        <translation>Switch the sensor's supply off and on again now.</translation>
    </message>
    <message id="1103">
        <source>Note</source>
        <translation>Note</translation>
    </message>
    <message id="1104">
        <source>Live magnet position in millimetres</source>
        <translation>Live magnet position in millimetres</translation>
    </message>
    <message id="1105">
        <source>The sensor's data format could not be kept in %1: %2. Nothing was written to the sensor, so its position cannot be shown.</source>
        <extracomment>%1 path, %2 reason</extracomment>
        <translation>The sensor's data format could not be kept in %1: %2. Nothing was written to the sensor, so its position cannot be shown.</translation>
    </message>
    <message id="1106">
        <source>The position stream could not be ended, so nothing else was done. Connect the sensor again.</source>
        <translation>The position stream could not be ended, so nothing else was done. Connect the sensor again.</translation>
    </message>
    <message id="1107">
        <source>The sensor on %1 with the version answer %2 may still carry the data format for the position stream: its own one, %3, has not been read back from it. That is written back as soon as the sensor is connected there again.</source>
        <extracomment>%1 device, %2 version answer, %3 data format</extracomment>
        <translation>The sensor on %1 with the version answer %2 may still carry the data format for the position stream: its own one, %3, has not been read back from it. That is written back as soon as the sensor is connected there again.</translation>
    </message>
    <message id="1108">
        <source>Try again</source>
        <translation>Try again</translation>
    </message>
    <message id="1109">
        <source>Forget</source>
        <translation>Forget</translation>
    </message>
    <message id="1110">
        <source>Forget the data format %1 of the sensor on %2? It is then not written back any more.</source>
        <extracomment>%1 data format, %2 device</extracomment>
        <translation>Forget the data format %1 of the sensor on %2? It is then not written back any more.</translation>
    </message>
    <message id="1111">
        <source>The data format of the connected sensor could not be read; it may still be the one for the position stream. Connect the sensor again.</source>
        <translation>The data format of the connected sensor could not be read; it may still be the one for the position stream. Connect the sensor again.</translation>
    </message>
    <message id="1112">
        <source>The sensor still carries the data format for the position stream. Nothing was saved or written. Connect the sensor again, so that its own data format is written back.</source>
        <translation>The sensor still carries the data format for the position stream. Nothing was saved or written. Connect the sensor again, so that its own data format is written back.</translation>
    </message>
    <message id="1200">
        <source>Password</source>
        <translation>Password</translation>
    </message>
    <message id="1201">
        <source>The values on this page have not all been read from the sensor as it is connected now. Refresh the page before you apply changes.</source>
        <translation>The values on this page have not all been read from the sensor as it is connected now. Refresh the page before you apply changes.</translation>
    </message>
    <message id="1204">
        <source>The error skip count must be a number from 0 to 255.</source>
        <translation>The error skip count must be a number from 0 to 255.</translation>
    </message>
    <message id="1205">
        <source>The sensor cannot hold the scale factor or the offset that these settings give. Choose a coarser resolution or another offset. Nothing was written.</source>
        <translation>The sensor cannot hold the scale factor or the offset that these settings give. Choose a coarser resolution or another offset. Nothing was written.</translation>
    </message>
    <message id="1206">
        <source>The sensor has no valid resolution, so its offset is not known. Nothing was written.</source>
        <translation>The sensor has no valid resolution, so its offset is not known. Nothing was written.</translation>
    </message>
    <message id="1302">
        <source>This value must not be longer than %1 characters.</source>
        <translation>This value must not be longer than %1 characters.</translation>
    </message>
    <message id="1303">
        <source>This value must have exactly %1 characters.</source>
        <translation>This value must have exactly %1 characters.</translation>
    </message>
    <message id="1304">
        <source>This value must consist of the digits 0 to 9 only.</source>
        <translation>This value must consist of the digits 0 to 9 only.</translation>
    </message>
    <message id="1305">
        <source>This value must be 0, 2, 4 or 8.</source>
        <translation>This value must be 0, 2, 4 or 8.</translation>
    </message>
    <message id="1306">
        <source>This value must be a hexadecimal number from 0 to %1.</source>
        <translation>This value must be a hexadecimal number from 0 to %1.</translation>
    </message>
    <message id="1307">
        <source>This value must be a number from %1 to %2.</source>
        <translation>This value must be a number from %1 to %2.</translation>
    </message>
    <message id="1308">
        <source>This value may only contain unaccented letters, digits, spaces and ASCII punctuation.</source>
        <translation>This value may only contain unaccented letters, digits, spaces and ASCII punctuation.</translation>
    </message>
    <message id="1310">
        <source>Parameters written before: %1. Read the sensor's parameters and check them before you use the sensor.</source>
        <translation>Parameters written before: %1. Read the sensor's parameters and check them before you use the sensor.</translation>
    </message>
    <message id="1311">
        <source>No parameter had been written before. Read the sensor's parameters and check them before you use the sensor.</source>
        <translation>No parameter had been written before. Read the sensor's parameters and check them before you use the sensor.</translation>
    </message>
    <message id="1320">
        <source>The file %1 could not be written: %2. A file of this name that was there before is unchanged.</source>
        <translation>The file %1 could not be written: %2. A file of this name that was there before is unchanged.</translation>
    </message>
    <message id="1321">
        <source>The file %1 could not be read: %2.</source>
        <translation>The file %1 could not be read: %2.</translation>
    </message>
    <message id="1322">
        <source>The backup file does not hold every parameter that the connected sensor needs. Nothing was written.</source>
        <translation>The backup file does not hold every parameter that the connected sensor needs. Nothing was written.</translation>
    </message>
    <message id="1323">
        <source>Missing: %1</source>
        <translation>Missing: %1</translation>
    </message>
    <message id="1324">
        <source>Not usable: %1</source>
        <translation>Not usable: %1</translation>
    </message>
    <message id="1325">
        <source>Save Backup</source>
        <translation>Save Backup</translation>
    </message>
    <message id="1326">
        <source>Restore Backup</source>
        <translation>Restore Backup</translation>
    </message>
    <message id="1328">
        <source>The sensor is not identified. Connect it before you save its parameters.</source>
        <translation>The sensor is not identified. Connect it before you save its parameters.</translation>
    </message>
    <message id="1329">
        <source>Progress</source>
        <translation>Progress</translation>
    </message>
    <message id="1330">
        <source>Parameter %1 was read as "%2", which is not a valid value: the answer may have been disturbed. Refresh the page. Nothing was written.</source>
        <translation>Parameter %1 was read as "%2", which is not a valid value: the answer may have been disturbed. Refresh the page. Nothing was written.</translation>
    </message>
    <message id="1331">
        <source>The backup was saved. These texts are unusual for their parameters, but the sensor answered each of them twice:</source>
        <extracomment>The texts follow, a line each</extracomment>
        <translation>The backup was saved. These texts are unusual for their parameters, but the sensor answered each of them twice:</translation>
    </message>
    <message id="1332">
        <source>The file holds texts that are unusual for their parameters. Write them to the sensor all the same?</source>
        <extracomment>The texts follow, a line each</extracomment>
        <translation>The file holds texts that are unusual for their parameters. Write them to the sensor all the same?</translation>
    </message>
    <message id="1400">
        <source>Not hexadecimal, but sent all the same: %1</source>
        <translation>Not hexadecimal, but sent all the same: %1</translation>
    </message>
    <message id="1401">
        <source>field %1 "%2" as %3</source>
        <translation>field %1 "%2" as %3</translation>
    </message>
    <message id="1402">
        <source>The serial port is not available. Nothing was sent.</source>
        <translation>The serial port is not available. Nothing was sent.</translation>
    </message>
    <message id="1403">
        <source>Cut off: the sensor was still sending after 60 seconds or 1 MiB.</source>
        <translation>Cut off: the sensor was still sending after 60 seconds or 1 MiB.</translation>
    </message>
    <message id="1404">
        <source>Fields that are not hexadecimal</source>
        <translation>Fields that are not hexadecimal</translation>
    </message>
    <message id="1405">
        <source>Outcome of the exchange</source>
        <translation>Outcome of the exchange</translation>
    </message>
    <message id="1406">
        <source>Copy</source>
        <translation>Copy</translation>
    </message>
    <message id="1407">
        <source>The serial port was lost during the exchange. What was sent or received may be incomplete.</source>
        <translation>The serial port was lost during the exchange. What was sent or received may be incomplete.</translation>
    </message>
    <message id="1502">
        <source>The file holds more rows than the table. Rows in the file: %1; read: %2; ignored: %3.</source>
        <translation>The file holds more rows than the table. Rows in the file: %1; read: %2; ignored: %3.</translation>
    </message>
    <message id="1503">
        <source>This has no function in this version.</source>
        <translation>This has no function in this version.</translation>
    </message>
    <message id="1510">
        <source>The file has been written, but it does not hold these cells as they were typed. A point is kept in steps of 0.5 from -16384.0 to 16383.5, a value as the integer that it begins with, and anything else as 0.</source>
        <translation>The file has been written, but it does not hold these cells as they were typed. A point is kept in steps of 0.5 from -16384.0 to 16383.5, a value as the integer that it begins with, and anything else as 0.</translation>
    </message>
    <message id="1600">
        <source>%1 is the port of the sensor. The display unit needs a port of its own; the value QDL3Comport of the settings names it.</source>
        <translation>%1 is the port of the sensor. The display unit needs a port of its own; the value QDL3Comport of the settings names it.</translation>
    </message>
    <message id="1601">
        <source>The port %1 no longer exists. Reconnect its adapter, then close the window of the display unit and open it again.</source>
        <translation>The port %1 no longer exists. Reconnect its adapter, then close the window of the display unit and open it again.</translation>
    </message>
    <message id="1602">
        <source>%1 is the port of the display unit. Close the window of the display unit before you choose this port for the sensor.</source>
        <translation>%1 is the port of the display unit. Close the window of the display unit before you choose this port for the sensor.</translation>
    </message>
    <message id="1603">
        <source>Current reading of the display unit</source>
        <translation>Current reading of the display unit</translation>
    </message>
    <message id="1610">
        <source>The display unit has acknowledged the settings.</source>
        <translation>The display unit has acknowledged the settings.</translation>
    </message>
    <message id="1611">
        <source>The display unit has not acknowledged all settings. Some of them may be in effect: apply them again.</source>
        <translation>The display unit has not acknowledged all settings. Some of them may be in effect: apply them again.</translation>
    </message>
    <message id="1612">
        <source>The value QDL3NodeID of the settings is %1. The display unit needs a node from 0 to 9.</source>
        <extracomment>%1 value</extracomment>
        <translation>The value QDL3NodeID of the settings is %1. The display unit needs a node from 0 to 9.</translation>
    </message>
    <message id="1700">
        <source>Reading what the sensor has…</source>
        <translation>Reading what the sensor has…</translation>
    </message>
    <message id="1701">
        <source>Restarting the sensor…</source>
        <translation>Restarting the sensor…</translation>
    </message>
    <message id="1702">
        <source>Comparing what the sensor has with what was written…</source>
        <translation>Comparing what the sensor has with what was written…</translation>
    </message>
    <message id="1703">
        <source>Verified: after a restart the sensor has all that was written.</source>
        <translation>Verified: after a restart the sensor has all that was written.</translation>
    </message>
    <message id="1704">
        <source>Differs: the sensor does not have all that was written.</source>
        <translation>Differs: the sensor does not have all that was written.</translation>
    </message>
    <message id="1705">
        <source>Not checked: it is not known what the sensor has.</source>
        <translation>Not checked: it is not known what the sensor has.</translation>
    </message>
    <message id="1706">
        <source>Nothing was written.</source>
        <translation>Nothing was written.</translation>
    </message>
    <message id="1707">
        <source>Differs: nothing was changed, the sensor has all that it had before.</source>
        <translation>Differs: nothing was changed, the sensor has all that it had before.</translation>
    </message>
    <message id="1708">
        <source>%1: written %2; the sensor has %3</source>
        <extracomment>%1 parameter, %2 and %3 values</extracomment>
        <translation>%1: written %2; the sensor has %3</translation>
    </message>
    <message id="1709">
        <source>No usable answer: %1</source>
        <extracomment>%1 parameters</extracomment>
        <translation>No usable answer: %1</translation>
    </message>
    <message id="1710">
        <source>The sensor answers what was written, but it was not restarted and may not have stored it.</source>
        <translation>The sensor answers what was written, but it was not restarted and may not have stored it.</translation>
    </message>
    <message id="1711">
        <source>At least a part of what was written could not be read back.</source>
        <translation>At least a part of what was written could not be read back.</translation>
    </message>
    <message id="1712">
        <source>Another sensor has answered than the one that was written to.</source>
        <translation>Another sensor has answered than the one that was written to.</translation>
    </message>
    <message id="1713">
        <source>The program was closed before the sensor could be read.</source>
        <translation>The program was closed before the sensor could be read.</translation>
    </message>
    <message id="1714">
        <source>Safe writes are switched off.</source>
        <translation>Safe writes are switched off.</translation>
    </message>
    <message id="1715">
        <source>It is compared when this sensor is connected again.</source>
        <translation>It is compared when this sensor is connected again.</translation>
    </message>
    <message id="1716">
        <source>The offset has come back as it was before it was multiplied: the sensor may divide it.</source>
        <translation>The offset has come back as it was before it was multiplied: the sensor may divide it.</translation>
    </message>
    <message id="1717">
        <source>The sensor no longer has what is shown: %1. Click Refresh, then enter your changes again.</source>
        <extracomment>%1 parameters</extracomment>
        <translation>The sensor no longer has what is shown: %1. Click Refresh, then enter your changes again.</translation>
    </message>
    <message id="1718">
        <source>What the sensor has now could not be kept:
%1
Without that it cannot be put back. Write all the same?</source>
        <extracomment>%1 what failed</extracomment>
        <translation>What the sensor has now could not be kept:
%1
Without that it cannot be put back. Write all the same?</translation>
    </message>
    <message id="1719">
        <source>These parameters of the sensor could not be read, so that they cannot be put back: %1. Write all the same?</source>
        <extracomment>%1 parameters</extracomment>
        <translation>These parameters of the sensor could not be read, so that they cannot be put back: %1. Write all the same?</translation>
    </message>
    <message id="1720">
        <source>Write All the Same</source>
        <translation>Write All the Same</translation>
    </message>
    <message id="1721">
        <source>Do Not Write</source>
        <translation>Do Not Write</translation>
    </message>
    <message id="1722">
        <source>Write Again</source>
        <translation>Write Again</translation>
    </message>
    <message id="1723">
        <source>Put Back…</source>
        <translation>Put Back…</translation>
    </message>
    <message id="1724">
        <source>%1 counts</source>
        <extracomment>%1 number</extracomment>
        <translation>%1 counts</translation>
    </message>
    <message id="1725">
        <source>Notice</source>
        <translation>Notice</translation>
    </message>
    <message id="1726">
        <source>Another sensor is connected than the one that was written to.</source>
        <translation>Another sensor is connected than the one that was written to.</translation>
    </message>
    <message id="1730">
        <source>&amp;Compare with Backup…</source>
        <extracomment>Menu item</extracomment>
        <translation>&amp;Compare with Backup…</translation>
    </message>
    <message id="1731">
        <source>Compare with Backup</source>
        <translation>Compare with Backup</translation>
    </message>
    <message id="1732">
        <source>The sensor no longer has what the review showed: %1. Read it again.</source>
        <extracomment>%1 parameters</extracomment>
        <translation>The sensor no longer has what the review showed: %1. Read it again.</translation>
    </message>
    <message id="1733">
        <source>Review Before Writing</source>
        <translation>Review Before Writing</translation>
    </message>
    <message id="1734">
        <source>Put Back</source>
        <extracomment>Title</extracomment>
        <translation>Put Back</translation>
    </message>
    <message id="1735">
        <source>Sensor</source>
        <extracomment>Column heading, and name of the line above the page</extracomment>
        <translation>Sensor</translation>
    </message>
    <message id="1736">
        <source>File</source>
        <extracomment>Column heading</extracomment>
        <translation>File</translation>
    </message>
    <message id="1737">
        <source>Earlier</source>
        <extracomment>Column heading: the value that the sensor had</extracomment>
        <translation>Earlier</translation>
    </message>
    <message id="1738">
        <source>%1, in words</source>
        <extracomment>Column heading; %1 whose value</extracomment>
        <translation>%1, in words</translation>
    </message>
    <message id="1739">
        <source>Comparison</source>
        <extracomment>Window title and column heading</extracomment>
        <translation>Comparison</translation>
    </message>
    <message id="1740">
        <source>differs</source>
        <extracomment>Of two values</extracomment>
        <translation>differs</translation>
    </message>
    <message id="1741">
        <source>equal</source>
        <extracomment>Of two values</extracomment>
        <translation>equal</translation>
    </message>
    <message id="1742">
        <source>Name</source>
        <extracomment>Column heading</extracomment>
        <translation>Name</translation>
    </message>
    <message id="1743">
        <source>To Be Written</source>
        <extracomment>Column heading</extracomment>
        <translation>To Be Written</translation>
    </message>
    <message id="1744">
        <source>stays as it is</source>
        <translation>stays as it is</translation>
    </message>
    <message id="1745">
        <source>with this sensor's own multiplier</source>
        <translation>with this sensor's own multiplier</translation>
    </message>
    <message id="1746">
        <source>The saved data format asks for the position stream. That is never written.</source>
        <translation>The saved data format asks for the position stream. That is never written.</translation>
    </message>
    <message id="1747">
        <source>computed from this sensor's own gradient</source>
        <translation>computed from this sensor's own gradient</translation>
    </message>
    <message id="1748">
        <source>this sensor's own length; the saved offset belongs to another stroke length or multiplier</source>
        <translation>this sensor's own length; the saved offset belongs to another stroke length or multiplier</translation>
    </message>
    <message id="1749">
        <source>The calibration is the saved one: it looks like the same sensor. Suggested: all parameters.</source>
        <translation>The calibration is the saved one: it looks like the same sensor. Suggested: all parameters.</translation>
    </message>
    <message id="1750">
        <source>The calibration is not the saved one (%1): this may be another sensor.</source>
        <extracomment>%1 parameters</extracomment>
        <translation>The calibration is not the saved one (%1): this may be another sensor.</translation>
    </message>
    <message id="1751">
        <source>All parameters: the sensor becomes what was saved, its calibration included</source>
        <translation>All parameters: the sensor becomes what was saved, its calibration included</translation>
    </message>
    <message id="1752">
        <source>Output settings only, for a replaced sensor: this sensor's calibration stays</source>
        <translation>Output settings only, for a replaced sensor: this sensor's calibration stays</translation>
    </message>
    <message id="1753">
        <source>Write</source>
        <extracomment>Button</extracomment>
        <translation>Write</translation>
    </message>
    <message id="1754">
        <source>Comparisons (*.csv);;All files (*)</source>
        <extracomment>File filter</extracomment>
        <translation>Comparisons (*.csv);;All files (*)</translation>
    </message>
    <message id="1755">
        <source>A backup does not hold: %1</source>
        <extracomment>%1 parameters</extracomment>
        <translation>A backup does not hold: %1</translation>
    </message>
    <message id="1756">
        <source>Not as it was then: %1. This may be another sensor than the one whose state was kept.</source>
        <extracomment>%1 parameters</extracomment>
        <translation>Not as it was then: %1. This may be another sensor than the one whose state was kept.</translation>
    </message>
    <message id="1757">
        <source>The measurement direction differs, and the saved offset cannot be taken over: it is to be calculated on the page Output Setup.</source>
        <translation>The measurement direction differs, and the saved offset cannot be taken over: it is to be calculated on the page Output Setup.</translation>
    </message>
    <message id="1758">
        <source>Nothing differs: the sensor already has all that would be written. Nothing was written.</source>
        <translation>Nothing differs: the sensor already has all that would be written. Nothing was written.</translation>
    </message>
    <message id="1759">
        <source>This state was kept of a sensor of another type. Nothing was written.</source>
        <translation>This state was kept of a sensor of another type. Nothing was written.</translation>
    </message>
    <message id="1760">
        <source>E&amp;arlier States…</source>
        <translation>E&amp;arlier States…</translation>
    </message>
    <message id="1761">
        <source>Earlier States</source>
        <translation>Earlier States</translation>
    </message>
    <message id="1762">
        <source>Only of the connected sensor</source>
        <translation>Only of the connected sensor</translation>
    </message>
    <message id="1763">
        <source>Time</source>
        <translation>Time</translation>
    </message>
    <message id="1764">
        <source>Port and Device</source>
        <translation>Port and Device</translation>
    </message>
    <message id="1765">
        <source>Revision</source>
        <translation>Revision</translation>
    </message>
    <message id="1766">
        <source>Written By</source>
        <translation>Written By</translation>
    </message>
    <message id="1767">
        <source>Written</source>
        <translation>Written</translation>
    </message>
    <message id="1768">
        <source>Outcome</source>
        <translation>Outcome</translation>
    </message>
    <message id="1769">
        <source>Before</source>
        <translation>Before</translation>
    </message>
    <message id="1770">
        <source>%1 (raw)</source>
        <extracomment>%1: Before, or Written</extracomment>
        <translation>%1 (raw)</translation>
    </message>
    <message id="1771">
        <source>Unfinished: it is not known how much of it was written.</source>
        <translation>Unfinished: it is not known how much of it was written.</translation>
    </message>
    <message id="1772">
        <source>Files in %1 that could not be read: %2</source>
        <extracomment>%1: folder, %2: how many</extracomment>
        <translation>Files in %1 that could not be read: %2</translation>
    </message>
    <message id="1773">
        <source>Delete…</source>
        <translation>Delete…</translation>
    </message>
    <message id="1774">
        <source>Delete the state of %1? It can then not be put back any more.</source>
        <extracomment>%1: time</extracomment>
        <translation>Delete the state of %1? It can then not be put back any more.</translation>
    </message>
    <message id="1775">
        <source>Close</source>
        <translation>Close</translation>
    </message>
    <message id="1776">
        <source>A write to a sensor (%1, %2) on %3 was not finished. If it was this sensor, it has all of it, a part of it or nothing.</source>
        <extracomment>%1: device, %2: version answer, %3: time; which sensor it was is known by these alone</extracomment>
        <translation>A write to a sensor (%1, %2) on %3 was not finished. If it was this sensor, it has all of it, a part of it or nothing.</translation>
    </message>
    <message id="1777">
        <source>Show…</source>
        <translation>Show…</translation>
    </message>
    <message id="1778">
        <source>Earlier state put back</source>
        <translation>Earlier state put back</translation>
    </message>
    <message id="1779">
        <source>Command line</source>
        <translation>Command line</translation>
    </message>
    <message id="1780">
        <source>Changes not applied: %1</source>
        <extracomment>%1 number, from 1 on</extracomment>
        <translation>Changes not applied: %1</translation>
    </message>
    <message id="1781">
        <source>Changes on this page that have not been applied: %1. Discard them?</source>
        <extracomment>%1 number, from 1 on</extracomment>
        <translation>Changes on this page that have not been applied: %1. Discard them?</translation>
    </message>
    <message id="1782">
        <source>Stay</source>
        <translation>Stay</translation>
    </message>
    <message id="1783">
        <source>Discard</source>
        <translation>Discard</translation>
    </message>
    <message id="1784">
        <source>Read: %1</source>
        <extracomment>%1 value</extracomment>
        <translation>Read: %1</translation>
    </message>
    <message id="1785">
        <source>Nothing was read that can be shown here.</source>
        <translation>Nothing was read that can be shown here.</translation>
    </message>
    <message id="1786">
        <source>Nothing was changed. Write the values all the same?</source>
        <translation>Nothing was changed. Write the values all the same?</translation>
    </message>
    <message id="1800">
        <source>The data format has the multiplier %1, and the offset was not entered anew. What shall be written?</source>
        <extracomment>%1 multiplier</extracomment>
        <translation>The data format has the multiplier %1, and the offset was not entered anew. What shall be written?</translation>
    </message>
    <message id="1801">
        <source>Offset so far: %1</source>
        <extracomment>%1: counts and length</extracomment>
        <translation>Offset so far: %1</translation>
    </message>
    <message id="1802">
        <source>Keep the length: %1</source>
        <extracomment>%1 counts and length</extracomment>
        <translation>Keep the length: %1</translation>
    </message>
    <message id="1803">
        <source>Write it multiplied: %1</source>
        <extracomment>%1 counts and length</extracomment>
        <translation>Write it multiplied: %1</translation>
    </message>
    <message id="1804">
        <source>Keep the Length</source>
        <translation>Keep the Length</translation>
    </message>
    <message id="1805">
        <source>Write It Multiplied</source>
        <translation>Write It Multiplied</translation>
    </message>
    <message id="1815">
        <source>Reading the data format…</source>
        <translation>Reading the data format…</translation>
    </message>
    <message id="1816">
        <source>Writing the data format for the position stream…</source>
        <translation>Writing the data format for the position stream…</translation>
    </message>
    <message id="1817">
        <source>Waiting for the sensor to store the data format…</source>
        <translation>Waiting for the sensor to store the data format…</translation>
    </message>
    <message id="1818">
        <source>Restarting the sensor…</source>
        <translation>Restarting the sensor…</translation>
    </message>
    <message id="1819">
        <source>Waiting for the position stream…</source>
        <translation>Waiting for the position stream…</translation>
    </message>
    <message id="1820">
        <source>Ending the position stream and connecting the sensor…</source>
        <translation>Ending the position stream and connecting the sensor…</translation>
    </message>
    <message id="1821">
        <source>Writing the sensor's own data format back…</source>
        <translation>Writing the sensor's own data format back…</translation>
    </message>
    <message id="1830">
        <source>Time Shown</source>
        <extracomment>Caption of a list of durations</extracomment>
        <translation>Time Shown</translation>
    </message>
    <message id="1831">
        <source>%1 s</source>
        <extracomment>%1 seconds</extracomment>
        <translation>%1 s</translation>
    </message>
    <message id="1832">
        <source>%1 min</source>
        <extracomment>%1 minutes</extracomment>
        <translation>%1 min</translation>
    </message>
    <message id="1833">
        <source>Whole Recording</source>
        <extracomment>Entry of the list of durations</extracomment>
        <translation>Whole Recording</translation>
    </message>
    <message id="1834">
        <source>Hold Range</source>
        <extracomment>Check box: the range of the position axis stays as it is</extracomment>
        <translation>Hold Range</translation>
    </message>
    <message id="1835">
        <source>Pause</source>
        <extracomment>Button that stays pressed</extracomment>
        <translation>Pause</translation>
    </message>
    <message id="1836">
        <source>Zero Here</source>
        <extracomment>Button that stays pressed: positions are shown relative to this one</extracomment>
        <translation>Zero Here</translation>
    </message>
    <message id="1837">
        <source>Record…</source>
        <extracomment>Button</extracomment>
        <translation>Record…</translation>
    </message>
    <message id="1838">
        <source>Stop Recording</source>
        <extracomment>Button</extracomment>
        <translation>Stop Recording</translation>
    </message>
    <message id="1839">
        <source>Open Recording…</source>
        <extracomment>Button</extracomment>
        <translation>Open Recording…</translation>
    </message>
    <message id="1840">
        <source>Minimum</source>
        <extracomment>Figure</extracomment>
        <translation>Minimum</translation>
    </message>
    <message id="1841">
        <source>Maximum</source>
        <extracomment>Figure</extracomment>
        <translation>Maximum</translation>
    </message>
    <message id="1842">
        <source>Span</source>
        <extracomment>Figure: maximum less minimum</extracomment>
        <translation>Span</translation>
    </message>
    <message id="1843">
        <source>Mean</source>
        <extracomment>Figure</extracomment>
        <translation>Mean</translation>
    </message>
    <message id="1844">
        <source>Standard Deviation</source>
        <extracomment>Figure</extracomment>
        <translation>Standard Deviation</translation>
    </message>
    <message id="1845">
        <source>Positions per Second</source>
        <extracomment>Figure</extracomment>
        <translation>Positions per Second</translation>
    </message>
    <message id="1846">
        <source>Malformed Frames</source>
        <extracomment>Figure: what came and was no position</extracomment>
        <translation>Malformed Frames</translation>
    </message>
    <message id="1847">
        <source>Time at the Cursor</source>
        <extracomment>Figure</extracomment>
        <translation>Time at the Cursor</translation>
    </message>
    <message id="1848">
        <source>Position at the Cursor</source>
        <extracomment>Figure</extracomment>
        <translation>Position at the Cursor</translation>
    </message>
    <message id="1849">
        <source>Trace of the position</source>
        <extracomment>For screen readers</extracomment>
        <translation>Trace of the position</translation>
    </message>
    <message id="1850">
        <source>No positions</source>
        <extracomment>In place of the trace</extracomment>
        <translation>No positions</translation>
    </message>
    <message id="1851">
        <source>Relative to %1 mm</source>
        <extracomment>%1 position</extracomment>
        <translation>Relative to %1 mm</translation>
    </message>
    <message id="1852">
        <source>The recording %1 has ended: %2. What was recorded before is in the file.</source>
        <extracomment>%1 path, %2 the system's reason</extracomment>
        <translation>The recording %1 has ended: %2. What was recorded before is in the file.</translation>
    </message>
    <message id="1853">
        <source>The file %1 is no recording of positions that this version can read: line 1 is not the first line of one.</source>
        <extracomment>%1 path</extracomment>
        <translation>The file %1 is no recording of positions that this version can read: line 1 is not the first line of one.</translation>
    </message>
    <message id="1854">
        <source>The recording %1 is damaged at line %2. Lines that could not be read: %3. All others are shown.</source>
        <extracomment>%1 path, %2 number of the first such line, %3 count</extracomment>
        <translation>The recording %1 is damaged at line %2. Lines that could not be read: %3. All others are shown.</translation>
    </message>
    <message id="1855">
        <source>Recording %1</source>
        <extracomment>Title of a window, %1 file name</extracomment>
        <translation>Recording %1</translation>
    </message>
    <message id="1856">
        <source>Sensor version %1, type %2, port %3, resolution %4 mm, begun %5 (UTC)</source>
        <extracomment>What a recording tells of itself</extracomment>
        <translation>Sensor version %1, type %2, port %3, resolution %4 mm, begun %5 (UTC)</translation>
    </message>
    <message id="1857">
        <source>All Decimals</source>
        <extracomment>Check box: the position is shown with the decimals of the resolution</extracomment>
        <translation>All Decimals</translation>
    </message>
    <message id="1858">
        <source>Recordings (*.csv);;All files (*)</source>
        <extracomment>File filter</extracomment>
        <translation>Recordings (*.csv);;All files (*)</translation>
    </message>
    <message id="1859">
        <source>mm/s</source>
        <extracomment>Unit</extracomment>
        <translation>mm/s</translation>
    </message>
    <message id="1860">
        <source>s</source>
        <extracomment>Unit</extracomment>
        <translation>s</translation>
    </message>
    <message id="1861">
        <source>Longest Gap</source>
        <extracomment>Figure beside a trace: the longest time without a position</extracomment>
        <translation>Longest Gap</translation>
    </message>
    <message id="1862">
        <source>Recorded</source>
        <extracomment>Figure beside a trace: how many seconds have been recorded</extracomment>
        <translation>Recorded</translation>
    </message>
    <message id="1870">
        <source>Output settings only is not possible: the page Output Setup does not offer what the file has: %1</source>
        <extracomment>%1: parameters</extracomment>
        <translation>Output settings only is not possible: the page Output Setup does not offer what the file has: %1</translation>
    </message>
    <message id="1900">
        <source>&amp;Settings…</source>
        <translation>&amp;Settings…</translation>
    </message>
    <message id="1901">
        <source>Settings</source>
        <translation>Settings</translation>
    </message>
    <message id="1902">
        <source>Sensor Types</source>
        <translation>Sensor Types</translation>
    </message>
    <message id="1903">
        <source>General</source>
        <translation>General</translation>
    </message>
    <message id="1904">
        <source>Ports</source>
        <translation>Ports</translation>
    </message>
    <message id="1905">
        <source>Sensor Packages</source>
        <translation>Sensor Packages</translation>
    </message>
    <message id="1906">
        <source>Display Unit</source>
        <translation>Display Unit</translation>
    </message>
    <message id="1908">
        <source>Lowest Revision (hexadecimal)</source>
        <translation>Lowest Revision (hexadecimal)</translation>
    </message>
    <message id="1909">
        <source>Highest Revision (hexadecimal)</source>
        <translation>Highest Revision (hexadecimal)</translation>
    </message>
    <message id="1910">
        <source>The connected sensor has the revision %1 (version answer %2).</source>
        <translation>The connected sensor has the revision %1 (version answer %2).</translation>
    </message>
    <message id="1911">
        <source>No sensor has answered.</source>
        <translation>No sensor has answered.</translation>
    </message>
    <message id="1912">
        <source>Types %1 and %2 both have the revisions %3 to %4: a sensor with one of them counts as type %1.</source>
        <translation>Types %1 and %2 both have the revisions %3 to %4: a sensor with one of them counts as type %1.</translation>
    </message>
    <message id="1913">
        <source>The sensor's supply is switched by hand</source>
        <translation>The sensor's supply is switched by hand</translation>
    </message>
    <message id="1914">
        <source>Safe writes: keep what the sensor had, restart it and compare what was written</source>
        <translation>Safe writes: keep what the sensor had, restart it and compare what was written</translation>
    </message>
    <message id="1915">
        <source>Show the page for temperature compensation</source>
        <translation>Show the page for temperature compensation</translation>
    </message>
    <message id="1916">
        <source>Offer the display unit in the View menu</source>
        <translation>Offer the display unit in the View menu</translation>
    </message>
    <message id="1917">
        <source>Node:</source>
        <translation>Node:</translation>
    </message>
    <message id="1918">
        <source>Device</source>
        <translation>Device</translation>
    </message>
    <message id="1919">
        <source>Description</source>
        <translation>Description</translation>
    </message>
    <message id="1920">
        <source>COM Number</source>
        <translation>COM Number</translation>
    </message>
    <message id="1921">
        <source>not present</source>
        <translation>not present</translation>
    </message>
    <message id="1922">
        <source>Add</source>
        <translation>Add</translation>
    </message>
    <message id="1923">
        <source>Remove</source>
        <translation>Remove</translation>
    </message>
    <message id="1924">
        <source>Import…</source>
        <translation>Import…</translation>
    </message>
    <message id="1925">
        <source>Use the Site's Settings Again…</source>
        <translation>Use the Site's Settings Again…</translation>
    </message>
    <message id="1926">
        <source>These settings are those of the file %1.</source>
        <translation>These settings are those of the file %1.</translation>
    </message>
    <message id="1927">
        <source>These settings are those of the file %1. A change makes a copy of them, %2. From then on %1 is no longer read.</source>
        <translation>These settings are those of the file %1. A change makes a copy of them, %2. From then on %1 is no longer read.</translation>
    </message>
    <message id="1928">
        <source>These settings are shown only: the file %1 cannot be written: %2.</source>
        <translation>These settings are shown only: the file %1 cannot be written: %2.</translation>
    </message>
    <message id="1929">
        <source>Settings files (*.reg);;All files (*)</source>
        <translation>Settings files (*.reg);;All files (*)</translation>
    </message>
    <message id="1930">
        <source>Type %1: the lowest revision is above the highest one.</source>
        <translation>Type %1: the lowest revision is above the highest one.</translation>
    </message>
    <message id="1931">
        <source>%1 is the number of two devices, %2 and %3. Give one of them another number.</source>
        <translation>%1 is the number of two devices, %2 and %3. Give one of them another number.</translation>
    </message>
    <message id="1932">
        <source>“%1” is no COM number for %2. Enter a number from 1 on, or nothing.</source>
        <translation>“%1” is no COM number for %2. Enter a number from 1 on, or nothing.</translation>
    </message>
    <message id="1933">
        <source>The sensor's port is %1: the display unit needs another one.</source>
        <translation>The sensor's port is %1: the display unit needs another one.</translation>
    </message>
    <message id="1934">
        <source>Package %1: “%2” is no distance in millimetres.</source>
        <translation>Package %1: “%2” is no distance in millimetres.</translation>
    </message>
    <message id="1935">
        <source>The package in row %1 needs a name.</source>
        <translation>The package in row %1 needs a name.</translation>
    </message>
    <message id="1936">
        <source>The file %1 has changed since it was read. It can be overwritten with what is entered here, or read again, which gives up what is entered.</source>
        <translation>The file %1 has changed since it was read. It can be overwritten with what is entered here, or read again, which gives up what is entered.</translation>
    </message>
    <message id="1937">
        <source>Overwrite</source>
        <translation>Overwrite</translation>
    </message>
    <message id="1938">
        <source>Read Again</source>
        <translation>Read Again</translation>
    </message>
    <message id="1939">
        <source>The tables of the page for temperature compensation hold values, which are lost when the page is no longer shown. Go on?</source>
        <translation>The tables of the page for temperature compensation hold values, which are lost when the page is no longer shown. Go on?</translation>
    </message>
    <message id="1940">
        <source>Your settings file is renamed to %1, and what is entered here is given up. The site's settings are in force again then. Go on?</source>
        <translation>Your settings file is renamed to %1, and what is entered here is given up. The site's settings are in force again then. Go on?</translation>
    </message>
    <message id="1941">
        <source>COM%1 has become another device, so the port was closed. Choose where to connect.</source>
        <translation>COM%1 has become another device, so the port was closed. Choose where to connect.</translation>
    </message>
    <message id="1942">
        <source>The sensor is in use: nothing was changed. Try again when that has ended.</source>
        <translation>The sensor is in use: nothing was changed. Try again when that has ended.</translation>
    </message>
    <message id="1943">
        <source>The file %1 holds no sensor packages.</source>
        <translation>The file %1 holds no sensor packages.</translation>
    </message>
    <message id="1944">
        <source>Import Sensor Packages</source>
        <translation>Import Sensor Packages</translation>
    </message>
    <message id="1960">
        <source>new number</source>
        <extracomment>In the list of ports, in the place of COM7: the device gets a number when it is chosen</extracomment>
        <translation>new number</translation>
    </message>
    <message id="1961">
        <source>No serial adapter is plugged in. As soon as one is, it appears in the list.</source>
        <translation>No serial adapter is plugged in. As soon as one is, it appears in the list.</translation>
    </message>
    <message id="1962">
        <source>%1 is not there. Plug the adapter in, or choose another port.</source>
        <translation>%1 is not there. Plug the adapter in, or choose another port.</translation>
    </message>
    <message id="1963">
        <source>Without a Port</source>
        <extracomment>Button</extracomment>
        <translation>Without a Port</translation>
    </message>
    <message id="1964">
        <source>Demonstration</source>
        <extracomment>Button</extracomment>
        <translation>Demonstration</translation>
    </message>
    <message id="1965">
        <source>No port is open: there is no sensor to work with. Everything that needs none can be used.</source>
        <extracomment>Above the page</extracomment>
        <translation>No port is open: there is no sensor to work with. Everything that needs none can be used.</translation>
    </message>
    <message id="1966">
        <source>Not identified: the sensor answered with firmware revision %1 (decimal %2). Ranges set: %3.</source>
        <extracomment>%3 is a list of 1967 and 1968</extracomment>
        <translation>Not identified: the sensor answered with firmware revision %1 (decimal %2). Ranges set: %3.</translation>
    </message>
    <message id="1967">
        <source>type %1: %2 to %3</source>
        <translation>type %1: %2 to %3</translation>
    </message>
    <message id="1968">
        <source>type %1: none</source>
        <translation>type %1: none</translation>
    </message>
    <message id="1969">
        <source>Use as Type</source>
        <extracomment>Button that opens a menu</extracomment>
        <translation>Use as Type</translation>
    </message>
    <message id="1971">
        <source>Always type %1: from now on %2 to %3, so far %4 to %5</source>
        <extracomment>Menu item: widens the range of revisions in the settings</extracomment>
        <translation>Always type %1: from now on %2 to %3, so far %4 to %5</translation>
    </message>
    <message id="1972">
        <source>Always type %1: from now on %2 to %2, so far none</source>
        <translation>Always type %1: from now on %2 to %2, so far none</translation>
    </message>
    <message id="1973">
        <source>Firmware revision %1 is used as type %2: chosen by hand.</source>
        <translation>Firmware revision %1 is used as type %2: chosen by hand.</translation>
    </message>
    <message id="1974">
        <source>%1, chosen by hand</source>
        <extracomment>A sensor type</extracomment>
        <translation>%1, chosen by hand</translation>
    </message>
    <message id="1975">
        <source>The range is entered in a settings file of your own, a copy of the one that is read now.

From then on %1 is read, and %2 no longer.</source>
        <translation>The range is entered in a settings file of your own, a copy of the one that is read now.

From then on %1 is read, and %2 no longer.</translation>
    </message>
    <message id="1976">
        <source>Last files:</source>
        <extracomment>In the file dialog, before a list</extracomment>
        <translation>Last files:</translation>
    </message>
    <message id="1977">
        <source>COM%1 is being opened. That can take up to 20 seconds while another program looks at an adapter that has just been plugged in.</source>
        <extracomment>Box while a port is opened, with a button that leads to the choice of another port</extracomment>
        <translation>COM%1 is being opened. That can take up to 20 seconds while another program looks at an adapter that has just been plugged in.</translation>
    </message>
    <message id="2000">
        <source>The sensor's port: a COM number, the path of a device, or simulator:...</source>
        <extracomment>Help of pelorin-cli, as all up to 2019</extracomment>
        <translation>The sensor's port: a COM number, the path of a device, or simulator:...</translation>
    </message>
    <message id="2001">
        <source>Prints one JSON object instead of words.</source>
        <translation>Prints one JSON object instead of words.</translation>
    </message>
    <message id="2002">
        <source>The sensor's type, for a firmware revision that lies in no configured range.</source>
        <translation>The sensor's type, for a firmware revision that lies in no configured range.</translation>
    </message>
    <message id="2003">
        <source>You switch the sensor's supply by hand, and are told when.</source>
        <translation>You switch the sensor's supply by hand, and are told when.</translation>
    </message>
    <message id="2004">
        <source>Repeats the connecting for so long until a sensor answers.</source>
        <translation>Repeats the connecting for so long until a sensor answers.</translation>
    </message>
    <message id="2005">
        <source>Saves the communications log to a file.</source>
        <translation>Saves the communications log to a file.</translation>
    </message>
    <message id="2006">
        <source>The settings file to be used.</source>
        <translation>The settings file to be used.</translation>
    </message>
    <message id="2007">
        <source>The language: 1 English, 2 German, 4 French, 8 Spanish, 16 Italian.</source>
        <translation>The language: 1 English, 2 German, 4 French, 8 Spanish, 16 Italian.</translation>
    </message>
    <message id="2008">
        <source>Answers yes to what would be asked.</source>
        <translation>Answers yes to what would be asked.</translation>
    </message>
    <message id="2009">
        <source>Writes nothing, neither to a sensor nor to a file other than that of --log.</source>
        <translation>Writes nothing, neither to a sensor nor to a file other than that of --log.</translation>
    </message>
    <message id="2010">
        <source>Shows this help.</source>
        <translation>Shows this help.</translation>
    </message>
    <message id="2011">
        <source>Shows the program's version.</source>
        <translation>Shows the program's version.</translation>
    </message>
    <message id="2012">
        <source>Lists the serial ports of this computer.</source>
        <translation>Lists the serial ports of this computer.</translation>
    </message>
    <message id="2013">
        <source>Reads all parameters of a sensor and shows what they mean.</source>
        <translation>Reads all parameters of a sensor and shows what they mean.</translation>
    </message>
    <message id="2014">
        <source>Reads parameters and shows their texts as they are. The sensor need not be identified.</source>
        <translation>Reads parameters and shows their texts as they are. The sensor need not be identified.</translation>
    </message>
    <message id="2015">
        <source>Saves all parameters of a sensor to a backup file.</source>
        <translation>Saves all parameters of a sensor to a backup file.</translation>
    </message>
    <message id="2016">
        <source>Compares a sensor with a backup file, or two backup files.</source>
        <translation>Compares a sensor with a backup file, or two backup files.</translation>
    </message>
    <message id="2017">
        <source>Shows what a backup file or a lookup table holds.</source>
        <translation>Shows what a backup file or a lookup table holds.</translation>
    </message>
    <message id="2020">
        <source>%2 is no value that %1 can have.</source>
        <extracomment>%1 option, %2 what was given</extracomment>
        <translation>%2 is no value that %1 can have.</translation>
    </message>
    <message id="2021">
        <source>Name the sensor's port with --port.</source>
        <translation>Name the sensor's port with --port.</translation>
    </message>
    <message id="2022">
        <source>The command is used like this:
%1</source>
        <extracomment>%1 command line</extracomment>
        <translation>The command is used like this:
%1</translation>
    </message>
    <message id="2023">
        <source>The sensor's supply is switched by hand, but there is no terminal at which you could be told when.</source>
        <translation>The sensor's supply is switched by hand, but there is no terminal at which you could be told when.</translation>
    </message>
    <message id="2024">
        <source>There is no command "%1". All are listed by --help.</source>
        <extracomment>%1 what was given</extracomment>
        <translation>There is no command "%1". All are listed by --help.</translation>
    </message>
    <message id="2025">
        <source>The language cannot be loaded.</source>
        <translation>The language cannot be loaded.</translation>
    </message>
    <message id="2026">
        <source>%1 stands for no device.</source>
        <extracomment>%1 COM number</extracomment>
        <translation>%1 stands for no device.</translation>
    </message>
    <message id="2027">
        <source>Switch the sensor's supply off, then press Enter. Type n and Enter if the sensor is ready for programming already.</source>
        <translation>Switch the sensor's supply off, then press Enter. Type n and Enter if the sensor is ready for programming already.</translation>
    </message>
    <message id="2028">
        <source>Switch the sensor's supply on now, then press Enter.</source>
        <translation>Switch the sensor's supply on now, then press Enter.</translation>
    </message>
    <message id="2029">
        <source>The sensor's firmware revision %1 is that of type %2, not of the one that was named. Nothing else was done.</source>
        <extracomment>%1 revision, %2 type</extracomment>
        <translation>The sensor's firmware revision %1 is that of type %2, not of the one that was named. Nothing else was done.</translation>
    </message>
    <message id="2030">
        <source>Interrupted.</source>
        <translation>Interrupted.</translation>
    </message>
    <message id="2031">
        <source>The results could not be written to standard output: %1.</source>
        <extracomment>%1 reason</extracomment>
        <translation>The results could not be written to standard output: %1.</translation>
    </message>
    <message id="2032">
        <source>yes</source>
        <extracomment>Typed as an answer; its first letter is enough</extracomment>
        <translation>yes</translation>
    </message>
    <message id="2033">
        <source>The file %1 exists. Overwrite it?</source>
        <extracomment>%1 path</extracomment>
        <translation>The file %1 exists. Overwrite it?</translation>
    </message>
    <message id="2034">
        <source>The file %1 exists and was not overwritten. --yes overwrites it.</source>
        <extracomment>%1 path</extracomment>
        <translation>The file %1 exists and was not overwritten. --yes overwrites it.</translation>
    </message>
    <message id="2035">
        <source>%1 is no parameter of a sensor.</source>
        <extracomment>%1 what was given</extracomment>
        <translation>%1 is no parameter of a sensor.</translation>
    </message>
    <message id="2036">
        <source>The file %1 is neither a backup file nor a lookup table.</source>
        <extracomment>%1 path</extracomment>
        <translation>The file %1 is neither a backup file nor a lookup table.</translation>
    </message>
    <message id="2037">
        <source>Sensor of type %1, version answer %2</source>
        <translation>Sensor of type %1, version answer %2</translation>
    </message>
    <message id="2038">
        <source>Sensor of type %1 (chosen by hand), version answer %2</source>
        <translation>Sensor of type %1 (chosen by hand), version answer %2</translation>
    </message>
    <message id="2039">
        <source>Sensor that is not identified, version answer %1</source>
        <translation>Sensor that is not identified, version answer %1</translation>
    </message>
    <message id="2040">
        <source>All are equal.</source>
        <extracomment>Parameters of a comparison</extracomment>
        <translation>All are equal.</translation>
    </message>
    <message id="2041">
        <source>not there</source>
        <extracomment>Of a parameter in a file</extracomment>
        <translation>not there</translation>
    </message>
    <message id="2042">
        <source>The settings file %1 does not exist.</source>
        <extracomment>%1 path</extracomment>
        <translation>The settings file %1 does not exist.</translation>
    </message>
    <message id="2060">
        <source>Writes saved parameters to a sensor, restarts it and compares.</source>
        <translation>Writes saved parameters to a sensor, restarts it and compares.</translation>
    </message>
    <message id="2061">
        <source>Changes output settings of a sensor, restarts it and compares. What is not named stays.</source>
        <translation>Changes output settings of a sensor, restarts it and compares. What is not named stays.</translation>
    </message>
    <message id="2062">
        <source>Shows the magnet's position until the time is over or the command is ended.</source>
        <translation>Shows the magnet's position until the time is over or the command is ended.</translation>
    </message>
    <message id="2063">
        <source>Lists the states that sensors had before they were written to, shows one, or puts one back.</source>
        <translation>Lists the states that sensors had before they were written to, shows one, or puts one back.</translation>
    </message>
    <message id="2064">
        <source>Writes even if what the sensor has now cannot be kept in the journal.</source>
        <translation>Writes even if what the sensor has now cannot be kept in the journal.</translation>
    </message>
    <message id="2065">
        <source>The password that skip-count needs.</source>
        <translation>The password that skip-count needs.</translation>
    </message>
    <message id="2066">
        <source>What is written for an offset that is not named while the data format has a multiplier.</source>
        <translation>What is written for an offset that is not named while the data format has a multiplier.</translation>
    </message>
    <message id="2067">
        <source>How long the position is shown.</source>
        <translation>How long the position is shown.</translation>
    </message>
    <message id="2068">
        <source>Records the positions in a file.</source>
        <translation>Records the positions in a file.</translation>
    </message>
    <message id="2070">
        <source>Say what is to be written: --all or --output-only.</source>
        <translation>Say what is to be written: --all or --output-only.</translation>
    </message>
    <message id="2071">
        <source>Write this to the sensor?</source>
        <translation>Write this to the sensor?</translation>
    </message>
    <message id="2072">
        <source>Nothing was written, because nobody has agreed. --yes agrees.</source>
        <translation>Nothing was written, because nobody has agreed. --yes agrees.</translation>
    </message>
    <message id="2073">
        <source>--no-journal writes all the same.</source>
        <translation>--no-journal writes all the same.</translation>
    </message>
    <message id="2074">
        <source>While safe writes are switched off the sensor is not read before: a backup can only be restored with --all. Nothing was written.</source>
        <translation>While safe writes are switched off the sensor is not read before: a backup can only be restored with --all. Nothing was written.</translation>
    </message>
    <message id="2075">
        <source>%1 is no setting. Settings are written NAME=VALUE, with these names: %2</source>
        <extracomment>%1 what was given, %2 names</extracomment>
        <translation>%1 is no setting. Settings are written NAME=VALUE, with these names: %2</translation>
    </message>
    <message id="2076">
        <source>%2 is no value of %1. Its values: %3</source>
        <extracomment>%1 setting, %2 what was given, %3 values</extracomment>
        <translation>%2 is no value of %1. Its values: %3</translation>
    </message>
    <message id="2077">
        <source>Sensors of type %1 do not have %2. Nothing was written.</source>
        <extracomment>%1 type, %2 setting</extracomment>
        <translation>Sensors of type %1 do not have %2. Nothing was written.</translation>
    </message>
    <message id="2078">
        <source>The measurement direction changes, and the offset with it: name the new offset, too. Nothing was written.</source>
        <translation>The measurement direction changes, and the offset with it: name the new offset, too. Nothing was written.</translation>
    </message>
    <message id="2079">
        <source>Choose with --offset-count=keep-length or --offset-count=multiplied. Nothing was written.</source>
        <translation>Choose with --offset-count=keep-length or --offset-count=multiplied. Nothing was written.</translation>
    </message>
    <message id="2080">
        <source>%1 is named twice.</source>
        <extracomment>%1 setting</extracomment>
        <translation>%1 is named twice.</translation>
    </message>
    <message id="2081">
        <source>then a pause of %1 ms</source>
        <translation>then a pause of %1 ms</translation>
    </message>
    <message id="2082">
        <source>The journal has no entry %1.</source>
        <translation>The journal has no entry %1.</translation>
    </message>
    <message id="2100">
        <source>%1 hexadecimal is %2.</source>
        <translation>%1 hexadecimal is %2.</translation>
    </message>
    <message id="2101">
        <source>%1 hexadecimal; the firmware revision is %2, as the bounds in the settings are written.</source>
        <translation>%1 hexadecimal; the firmware revision is %2, as the bounds in the settings are written.</translation>
    </message>
    <message id="2102">
        <source>%1 = 512 × gradient ÷ resolution in µm.</source>
        <translation>%1 = 512 × gradient ÷ resolution in µm.</translation>
    </message>
    <message id="2103">
        <source>Gradient and resolution give %1.</source>
        <translation>Gradient and resolution give %1.</translation>
    </message>
    <message id="2104">
        <source>The code of a stroke length of %1 mm.</source>
        <translation>The code of a stroke length of %1 mm.</translation>
    </message>
    <message id="2105">
        <source>%1 or %2</source>
        <translation>%1 or %2</translation>
    </message>
    <message id="2106">
        <source>No stroke length has this code.</source>
        <translation>No stroke length has this code.</translation>
    </message>
    <message id="2107">
        <source>As Read from the Sensor</source>
        <translation>As Read from the Sensor</translation>
    </message>
    <message id="2108">
        <source>Read a Parameter</source>
        <translation>Read a Parameter</translation>
    </message>
    <message id="2109">
        <source>Received, as Text</source>
        <translation>Received, as Text</translation>
    </message>
    <message id="2110">
        <source>Enter sends; Up and Down show what was sent before.</source>
        <translation>Enter sends; Up and Down show what was sent before.</translation>
    </message>
    <message id="2111">
        <source>Not everything that was pasted has a cell in the table. What lies beyond its edge was left out.</source>
        <translation>Not everything that was pasted has a cell in the table. What lies beyond its edge was left out.</translation>
    </message>
    <message id="2112">
        <source>Paste</source>
        <translation>Paste</translation>
    </message>
    <message id="2113">
        <source>The file cannot hold this; it will hold %1.</source>
        <translation>The file cannot hold this; it will hold %1.</translation>
    </message>
    <message id="2114">
        <source>Selected line, in words</source>
        <translation>Selected line, in words</translation>
    </message>
    <message id="2115">
        <source>Copy with Times</source>
        <translation>Copy with Times</translation>
    </message>
    <message id="2116">
        <source>Follow</source>
        <translation>Follow</translation>
    </message>
    <message id="2117">
        <source>Find</source>
        <translation>Find</translation>
    </message>
    <message id="2118">
        <source>Next</source>
        <translation>Next</translation>
    </message>
    <message id="2119">
        <source>Previous</source>
        <translation>Previous</translation>
    </message>
    <message id="2120">
        <source>%1 of %2</source>
        <translation>%1 of %2</translation>
    </message>
    <message id="2121">
        <source>searching: %1 so far</source>
        <translation>searching: %1 so far</translation>
    </message>
    <message id="2122">
        <source>Not found</source>
        <translation>Not found</translation>
    </message>
    <message id="2123">
        <source>Read of %1.</source>
        <translation>Read of %1.</translation>
    </message>
    <message id="2124">
        <source>Write of %1: %2.</source>
        <translation>Write of %1: %2.</translation>
    </message>
    <message id="2125">
        <source>Answer, %1: %2.</source>
        <translation>Answer, %1: %2.</translation>
    </message>
    <message id="2126">
        <source>Command %1.</source>
        <translation>Command %1.</translation>
    </message>
    <message id="2127">
        <source>Position, as the sensor streams it: SSI word %1 hexadecimal.</source>
        <translation>Position, as the sensor streams it: SSI word %1 hexadecimal.</translation>
    </message>
    <message id="2128">
        <source>The supply line (RTS) could not be switched: %1.</source>
        <translation>The supply line (RTS) could not be switched: %1.</translation>
    </message>
    <message id="2129">
        <source>The port could not be emptied: %1.</source>
        <translation>The port could not be emptied: %1.</translation>
    </message>
    <message id="2130">
        <source>Sending failed: %1.</source>
        <translation>Sending failed: %1.</translation>
    </message>
    <message id="2131">
        <source>Receiving failed: %1.</source>
        <translation>Receiving failed: %1.</translation>
    </message>
    <message id="2132">
        <source>A frame left the port only in part.</source>
        <translation>A frame left the port only in part.</translation>
    </message>
    <message id="2133">
        <source>The answer above has %1 bytes; 7 to 9 are expected.</source>
        <translation>The answer above has %1 bytes; 7 to 9 are expected.</translation>
    </message>
    <message id="2134">
        <source>The answer above does not end as an answer does.</source>
        <translation>The answer above does not end as an answer does.</translation>
    </message>
    <message id="2135">
        <source>A value of %1 bytes is too long for a frame; nothing was sent.</source>
        <translation>A value of %1 bytes is too long for a frame; nothing was sent.</translation>
    </message>
    <message id="2136">
        <source>The sensor is of type %1, as its firmware revision says.</source>
        <translation>The sensor is of type %1, as its firmware revision says.</translation>
    </message>
    <message id="2137">
        <source>The firmware revision of the sensor lies in none of the configured ranges.</source>
        <translation>The firmware revision of the sensor lies in none of the configured ranges.</translation>
    </message>
    <message id="2138">
        <source>Nothing was received in time.</source>
        <translation>Nothing was received in time.</translation>
    </message>
    <message id="2139">
        <source>Not a whole answer, as text: %1.</source>
        <translation>Not a whole answer, as text: %1.</translation>
    </message>
    <message id="2140">
        <source>&amp;Open Backup File…</source>
        <translation>&amp;Open Backup File…</translation>
    </message>
    <message id="2141">
        <source>Backup File</source>
        <translation>Backup File</translation>
    </message>
    <message id="2142">
        <source>Re&amp;port…</source>
        <translation>Re&amp;port…</translation>
    </message>
    <message id="2143">
        <source>Sensor Report</source>
        <translation>Sensor Report</translation>
    </message>
    <message id="2144">
        <source>Web pages (*.html);;PDF documents (*.pdf);;All files (*)</source>
        <translation>Web pages (*.html);;PDF documents (*.pdf);;All files (*)</translation>
    </message>
    <message id="2145">
        <source>Note</source>
        <translation>Note</translation>
    </message>
    <message id="2146">
        <source>Date and time</source>
        <translation>Date and time</translation>
    </message>
    <message id="2147">
        <source>Program</source>
        <translation>Program</translation>
    </message>
    <message id="2148">
        <source>Last verification</source>
        <translation>Last verification</translation>
    </message>
    <message id="2149">
        <source>The journal has no write to this sensor.</source>
        <translation>The journal has no write to this sensor.</translation>
    </message>
    <message id="2150">
        <source>&amp;Support File…</source>
        <translation>&amp;Support File…</translation>
    </message>
    <message id="2151">
        <source>Support File</source>
        <translation>Support File</translation>
    </message>
    <message id="2152">
        <source>This is what the file will hold; it stays on this computer until you pass it on. Delete here what you do not want to pass on.</source>
        <translation>This is what the file will hold; it stays on this computer until you pass it on. Delete here what you do not want to pass on.</translation>
    </message>
    <message id="2153">
        <source>Versions</source>
        <translation>Versions</translation>
    </message>
    <message id="2155">
        <source>Last kept state of a sensor</source>
        <translation>Last kept state of a sensor</translation>
    </message>
    <message id="2156">
        <source>The last %1 of %2 lines</source>
        <translation>The last %1 of %2 lines</translation>
    </message>
    <message id="2157">
        <source>Sensor type</source>
        <translation>Sensor type</translation>
    </message>
    <message id="2160">
        <source>Sensor connected</source>
        <extracomment>State in the line above the page</extracomment>
        <translation>Sensor connected</translation>
    </message>
    <message id="2161">
        <source>No sensor connected</source>
        <extracomment>State in the line above the page</extracomment>
        <translation>No sensor connected</translation>
    </message>
    <message id="2162">
        <source>Sensor not identified</source>
        <extracomment>State in the line above the page</extracomment>
        <translation>Sensor not identified</translation>
    </message>
    <message id="2163">
        <source>Connection lost</source>
        <extracomment>State in the line above the page</extracomment>
        <translation>Connection lost</translation>
    </message>
    <message id="2164">
        <source>Type %1</source>
        <extracomment>%1 is the sensor's type, a digit</extracomment>
        <translation>Type %1</translation>
    </message>
    <message id="2165">
        <source>Type %1, chosen by hand</source>
        <extracomment>%1 is the sensor's type, a digit</extracomment>
        <translation>Type %1, chosen by hand</translation>
    </message>
    <message id="2166">
        <source>Firmware revision %1</source>
        <extracomment>%1 are two hexadecimal digits</extracomment>
        <translation>Firmware revision %1</translation>
    </message>
    <message id="2167">
        <source>Safe writes on</source>
        <translation>Safe writes on</translation>
    </message>
    <message id="2168">
        <source>Safe writes off</source>
        <translation>Safe writes off</translation>
    </message>
    <message id="2170">
        <source>Go Back</source>
        <translation>Go Back</translation>
    </message>
    <message id="2171">
        <source>Go Forward</source>
        <translation>Go Forward</translation>
    </message>
    <message id="2172">
        <source>%1 has vanished right after it was plugged in. Other programs take some adapters, such as braille display drivers (brltty) or ModemManager: have them leave it alone, then plug it in again.</source>
        <translation>%1 has vanished right after it was plugged in. Other programs take some adapters, such as braille display drivers (brltty) or ModemManager: have them leave it alone, then plug it in again.</translation>
    </message>
    <message id="2200">
        <source>The log keeps its newest lines, up to 256 MB. Older lines that are gone: %1</source>
        <extracomment>Note above the communications log; %1 number of lines</extracomment>
        <translation>The log keeps its newest lines, up to 256 MB. Older lines that are gone: %1</translation>
    </message>
    <message id="2220">
        <source>Licence:</source>
        <extracomment>Caption in the About dialog</extracomment>
        <translation>Licence:</translation>
    </message>
    <message id="2221">
        <source>Commit:</source>
        <extracomment>Caption in the About dialog: the revision of the sources</extracomment>
        <translation>Commit:</translation>
    </message>
    <message id="2222">
        <source>Qt version:</source>
        <extracomment>Caption in the About dialog</extracomment>
        <translation>Qt version:</translation>
    </message>
    <message id="2230">
        <source>Reading was cancelled. What is empty was not read.</source>
        <extracomment>the user has cancelled the reading of a page</extracomment>
        <translation>Reading was cancelled. What is empty was not read.</translation>
    </message>
    <message id="2260">
        <source>The tables of the page for temperature compensation hold values that are in no file. Discard them?</source>
        <translation>The tables of the page for temperature compensation hold values that are in no file. Discard them?</translation>
    </message>
    <message id="2261">
        <source>The file replaces values of the table that are in no file. Discard them?</source>
        <translation>The file replaces values of the table that are in no file. Discard them?</translation>
    </message>
    <message id="2265">
        <source>You have no permission to open %1. Only the administrator of the system can give access to it.</source>
        <extracomment>%1 port</extracomment>
        <translation>You have no permission to open %1. Only the administrator of the system can give access to it.</translation>
    </message>
    <message id="2266">
        <source>The port is another one than that of the sensor that was written to.</source>
        <translation>The port is another one than that of the sensor that was written to.</translation>
    </message>
    <message id="2267">
        <source>Pelorin ends without its port. If you stay, it goes on without one.</source>
        <translation>Pelorin ends without its port. If you stay, it goes on without one.</translation>
    </message>
    <message id="2268">
        <source>Another sensor answers than the one that was connected. Connect it first. Nothing was written.</source>
        <translation>Another sensor answers than the one that was connected. Connect it first. Nothing was written.</translation>
    </message>
    <message id="2269">
        <source>Saved, and not taken over, since this type of sensor does not have it: %1.</source>
        <extracomment>%1 parameters</extracomment>
        <translation>Saved, and not taken over, since this type of sensor does not have it: %1.</translation>
    </message>
</context>
</TS>

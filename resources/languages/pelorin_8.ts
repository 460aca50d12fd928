<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="es" sourcelanguage="en">
<context>
    <name></name>
    <message id="100">
        <source>Pelorin</source>
        <translation>Pelorin</translation>
    </message>
    <message id="101">
        <source>Port %1 could not be opened (system error %2).</source>
        <extracomment>%1 port, %2 system error code</extracomment>
        <translation>No se pudo abrir el puerto %1 (error del sistema %2).</translation>
    </message>
    <message id="102">
        <source>The line settings of port %1 could not be set (system error %2).</source>
        <extracomment>%1 port, %2 system error code</extracomment>
        <translation>No se pudieron ajustar los parámetros de transmisión del puerto %1 (error del sistema %2).</translation>
    </message>
    <message id="103">
        <source>The time-outs of port %1 could not be set (system error %2).</source>
        <extracomment>%1 port, %2 system error code</extracomment>
        <translation>No se pudieron ajustar los tiempos de espera del puerto %1 (error del sistema %2).</translation>
    </message>
    <message id="104">
        <source>The queue sizes of port %1 could not be set (system error %2).</source>
        <extracomment>%1 port, %2 system error code</extracomment>
        <translation>No se pudo ajustar el tamaño de los búferes del puerto %1 (error del sistema %2).</translation>
    </message>
    <message id="105">
        <source>The communication could not be started (system error %1).</source>
        <extracomment>%1 system error code</extracomment>
        <translation>No se pudo iniciar la comunicación (error del sistema %1).</translation>
    </message>
    <message id="106">
        <source>E&amp;xit</source>
        <extracomment>Item on the menu bar</extracomment>
        <translation>Sa&amp;lir</translation>
    </message>
    <message id="107">
        <source>Select Communications Port</source>
        <extracomment>Menu item and dialog title, so without a mnemonic</extracomment>
        <translation>Seleccionar puerto de comunicación</translation>
    </message>
    <message id="108">
        <source>&amp;Connection</source>
        <extracomment>Menu</extracomment>
        <translation>&amp;Conexión</translation>
    </message>
    <message id="109">
        <source>&amp;Connect</source>
        <extracomment>Menu item</extracomment>
        <translation>&amp;Conectar</translation>
    </message>
    <message id="110">
        <source>Sensor Information</source>
        <extracomment>Page</extracomment>
        <translation>Información del sensor</translation>
    </message>
    <message id="111">
        <source>Parameter</source>
        <extracomment>Column heading</extracomment>
        <translation>Parámetro</translation>
    </message>
    <message id="112">
        <source>Value</source>
        <extracomment>Column heading</extracomment>
        <translation>Valor</translation>
    </message>
    <message id="113">
        <source>Unit</source>
        <extracomment>Column heading</extracomment>
        <translation>Unidad</translation>
    </message>
    <message id="114">
        <source>COM%1</source>
        <extracomment>%1 port number</extracomment>
        <translation>COM%1</translation>
    </message>
    <message id="115">
        <source>No port</source>
        <extracomment>Status bar, in place of the port</extracomment>
        <translation>Sin puerto</translation>
    </message>
    <message id="116">
        <source>Connecting to the sensor…</source>
        <extracomment>Status bar</extracomment>
        <translation>Conectando con el sensor…</translation>
    </message>
    <message id="117">
        <source>Connected to the sensor.</source>
        <extracomment>Status bar</extracomment>
        <translation>Conectado con el sensor.</translation>
    </message>
    <message id="118">
        <source>Not connected to the sensor.</source>
        <extracomment>Status bar</extracomment>
        <translation>Sin conexión con el sensor.</translation>
    </message>
    <message id="119">
        <source>Pelorin</source>
        <extracomment>Title of the main window</extracomment>
        <translation>Pelorin</translation>
    </message>
    <message id="120">
        <source>Cancel</source>
        <extracomment>Button</extracomment>
        <translation>Cancelar</translation>
    </message>
    <message id="121">
        <source>Reading the sensor's parameters…</source>
        <extracomment>Status bar</extracomment>
        <translation>Leyendo los parámetros del sensor…</translation>
    </message>
    <message id="122">
        <source>Data Format</source>
        <extracomment>Group and table row</extracomment>
        <translation>Formato de datos</translation>
    </message>
    <message id="123">
        <source>Parameter %1 could not be read from the sensor.</source>
        <extracomment>%1 byte value of the parameter's identifier</extracomment>
        <translation>No se pudo leer el parámetro %1 del sensor.</translation>
    </message>
    <message id="124">
        <source>%1 bits, Gray code</source>
        <extracomment>%1 number of data bits</extracomment>
        <translation>%1 bits, código Gray</translation>
    </message>
    <message id="125">
        <source>%1 bits, binary</source>
        <extracomment>%1 number of data bits</extracomment>
        <translation>%1 bits, binario</translation>
    </message>
    <message id="126">
        <source>Ready.</source>
        <extracomment>Status bar, after reading or writing</extracomment>
        <translation>Listo.</translation>
    </message>
    <message id="127">
        <source>Measurement Mode</source>
        <extracomment>Caption, group and table row</extracomment>
        <translation>Modo de medición</translation>
    </message>
    <message id="128">
        <source>Reverse</source>
        <extracomment>Direction of measurement</extracomment>
        <translation>Inverso</translation>
    </message>
    <message id="129">
        <source>Forward</source>
        <extracomment>Direction of measurement</extracomment>
        <translation>Directo</translation>
    </message>
    <message id="130">
        <source>Synchronous</source>
        <extracomment>Measurement mode</extracomment>
        <translation>Síncrono</translation>
    </message>
    <message id="131">
        <source>Position stream</source>
        <extracomment>Measurement mode, while the sensor streams positions</extracomment>
        <translation>Salida continua de posición</translation>
    </message>
    <message id="132">
        <source>Asynchronous</source>
        <extracomment>Measurement mode</extracomment>
        <translation>Asíncrono</translation>
    </message>
    <message id="133">
        <source>Multiplier</source>
        <extracomment>Table row</extracomment>
        <translation>Multiplicador</translation>
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
        <translation>Texto de fábrica</translation>
    </message>
    <message id="139">
        <source>Firmware Version</source>
        <extracomment>Table row, parameter V</extracomment>
        <translation>Versión de firmware</translation>
    </message>
    <message id="140">
        <source>Resolution</source>
        <extracomment>Caption and table row</extracomment>
        <translation>Resolución</translation>
    </message>
    <message id="141">
        <source>mm</source>
        <extracomment>Unit</extracomment>
        <translation>mm</translation>
    </message>
    <message id="142">
        <source>Stroke Length</source>
        <extracomment>Caption and table row</extracomment>
        <translation>Longitud de medición</translation>
    </message>
    <message id="143">
        <source>Gradient</source>
        <extracomment>Table row, parameter U: speed of the pulse in the waveguide</extracomment>
        <translation>Gradiente</translation>
    </message>
    <message id="144">
        <source>m/s (µs/in)</source>
        <extracomment>Unit of the pulse velocity, in parentheses that of its reciprocal</extracomment>
        <translation>m/s (µs/in)</translation>
    </message>
    <message id="145">
        <source>Scale Factor</source>
        <extracomment>Table row, parameter S</extracomment>
        <translation>Factor de escala</translation>
    </message>
    <message id="146">
        <source>hex</source>
        <extracomment>Unit of a value shown in hexadecimal digits</extracomment>
        <translation>hex</translation>
    </message>
    <message id="147">
        <source>Factory Text P</source>
        <extracomment>Table row, parameter P</extracomment>
        <translation>Texto de fábrica P</translation>
    </message>
    <message id="148">
        <source>Cycle Code Z</source>
        <extracomment>Table row, parameter Z</extracomment>
        <translation>Código de ciclo Z</translation>
    </message>
    <message id="149">
        <source>Offset</source>
        <extracomment>Table row, parameter N</extracomment>
        <translation>Offset</translation>
    </message>
    <message id="150">
        <source>Cycle Code M</source>
        <extracomment>Table row, parameter M</extracomment>
        <translation>Código de ciclo M</translation>
    </message>
    <message id="151">
        <source>Factory Value J</source>
        <extracomment>Table row, parameter J</extracomment>
        <translation>Valor de fábrica J</translation>
    </message>
    <message id="152">
        <source>Not applicable</source>
        <extracomment>In place of a value that this type of sensor does not have</extracomment>
        <translation>No aplicable</translation>
    </message>
    <message id="153">
        <source>Advanced Measurement Setup</source>
        <extracomment>Group and table row, parameter K</extracomment>
        <translation>Configuración de medición avanzada</translation>
    </message>
    <message id="154">
        <source>Factory Value O</source>
        <extracomment>Table row, parameter O</extracomment>
        <translation>Valor de fábrica O</translation>
    </message>
    <message id="155">
        <source>1 Magnet</source>
        <extracomment>Option and table cell</extracomment>
        <translation>1 imán</translation>
    </message>
    <message id="156">
        <source>2 Magnets</source>
        <extracomment>Option and table cell</extracomment>
        <translation>2 imanes</translation>
    </message>
    <message id="157">
        <source>Normal Position Output</source>
        <extracomment>Option and table cell</extracomment>
        <translation>Salida de posición normal</translation>
    </message>
    <message id="158">
        <source>Differential Position</source>
        <extracomment>Option and table cell</extracomment>
        <translation>Diferencia de posición</translation>
    </message>
    <message id="159">
        <source>Velocity</source>
        <extracomment>Option and table cell</extracomment>
        <translation>Velocidad</translation>
    </message>
    <message id="160">
        <source>Unknown number of magnets</source>
        <extracomment>Table cell</extracomment>
        <translation>Número de imanes desconocido</translation>
    </message>
    <message id="161">
        <source>Unknown output</source>
        <extracomment>Table cell</extracomment>
        <translation>Salida desconocida</translation>
    </message>
    <message id="162">
        <source>No Extension</source>
        <extracomment>Option and table cell</extracomment>
        <translation>Sin extensión</translation>
    </message>
    <message id="163">
        <source>Parity</source>
        <extracomment>Option and table cell</extracomment>
        <translation>Paridad</translation>
    </message>
    <message id="164">
        <source>Temperature</source>
        <extracomment>Option and table cell</extracomment>
        <translation>Temperatura</translation>
    </message>
    <message id="165">
        <source>Unknown extension</source>
        <extracomment>Table cell</extracomment>
        <translation>Extensión desconocida</translation>
    </message>
    <message id="166">
        <source>Refresh</source>
        <extracomment>Button</extracomment>
        <translation>Actualizar</translation>
    </message>
    <message id="167">
        <source>COM%1 could not be opened.

Abort ends the program, Retry tries the same port again, Ignore lets you select another port.</source>
        <extracomment>%1 port number; names the buttons Abort, Retry and Ignore as the toolkit translates them</extracomment>
        <translation>No se pudo abrir COM%1.

«Interrumpir» termina el programa, «Reintentar» prueba el mismo puerto, «Ignorar» permite seleccionar otro puerto.</translation>
    </message>
    <message id="168">
        <source>Output Setup</source>
        <extracomment>Page</extracomment>
        <translation>Configuración de salida</translation>
    </message>
    <message id="169">
        <source>Data Bits</source>
        <extracomment>Caption</extracomment>
        <translation>Bits de datos</translation>
    </message>
    <message id="170">
        <source>Parameter %1 could not be written to the sensor.</source>
        <extracomment>%1 byte value of the parameter's identifier</extracomment>
        <translation>No se pudo escribir el parámetro %1 en el sensor.</translation>
    </message>
    <message id="171">
        <source>Binary</source>
        <extracomment>Output format</extracomment>
        <translation>Binario</translation>
    </message>
    <message id="172">
        <source>Gray code</source>
        <extracomment>Output format</extracomment>
        <translation>Código Gray</translation>
    </message>
    <message id="173">
        <source>Format</source>
        <extracomment>Caption</extracomment>
        <translation>Formato</translation>
    </message>
    <message id="174">
        <source>Measurement Direction</source>
        <extracomment>Caption</extracomment>
        <translation>Sentido de medición</translation>
    </message>
    <message id="175">
        <source>mm</source>
        <extracomment>Unit of the resolution</extracomment>
        <translation>mm</translation>
    </message>
    <message id="176">
        <source>Error Skip Count</source>
        <extracomment>Caption and table row</extracomment>
        <translation>Errores omitidos</translation>
    </message>
    <message id="177">
        <source>Number of Magnets</source>
        <extracomment>Group</extracomment>
        <translation>Número de imanes</translation>
    </message>
    <message id="178">
        <source>Extension</source>
        <extracomment>Group</extracomment>
        <translation>Extensión</translation>
    </message>
    <message id="179">
        <source>Unlock</source>
        <extracomment>Button</extracomment>
        <translation>Desbloquear</translation>
    </message>
    <message id="180">
        <source>Apply Changes</source>
        <extracomment>Button</extracomment>
        <translation>Aplicar cambios</translation>
    </message>
    <message id="181">
        <source>A value is missing. Please complete it first.</source>
        <extracomment>Message, with the incomplete field focused</extracomment>
        <translation>Falta un valor. Complételo primero.</translation>
    </message>
    <message id="182">
        <source>This type of sensor does not offer a resolution finer than 0.010 mm.</source>
        <extracomment>Message</extracomment>
        <translation>Este tipo de sensor no ofrece una resolución más fina que 0.010 mm.</translation>
    </message>
    <message id="183">
        <source>This type of sensor has no synchronous measurement mode.</source>
        <extracomment>Message</extracomment>
        <translation>Este tipo de sensor no tiene modo de medición síncrono.</translation>
    </message>
    <message id="184">
        <source>The measurement direction changes, and the offset with it. Select the sensor package or enter the sensor's dimensions; the new offset is calculated from them.</source>
        <extracomment>Note in a dialog</extracomment>
        <translation>El sentido de medición cambia, y con él el offset. Seleccione el modelo de sensor o introduzca sus dimensiones; el nuevo offset se calcula a partir de ellas.</translation>
    </message>
    <message id="185">
        <source>Calculate Offset</source>
        <extracomment>Dialog title</extracomment>
        <translation>Calcular offset</translation>
    </message>
    <message id="186">
        <source>SE Distance</source>
        <extracomment>Caption</extracomment>
        <translation>Distancia SE</translation>
    </message>
    <message id="187">
        <source>Dead Zone</source>
        <extracomment>Caption</extracomment>
        <translation>Zona muerta</translation>
    </message>
    <message id="188">
        <source>Communications Log</source>
        <extracomment>Page</extracomment>
        <translation>Registro de comunicación</translation>
    </message>
    <message id="189">
        <source>Clear</source>
        <extracomment>Button</extracomment>
        <translation>Vaciar</translation>
    </message>
    <message id="190">
        <source>Save To Disk</source>
        <extracomment>Button</extracomment>
        <translation>Guardar en disco</translation>
    </message>
    <message id="191">
        <source>Text files (*.txt);;All files (*)</source>
        <extracomment>File filter</extracomment>
        <translation>Archivos de texto (*.txt);;Todos los archivos (*)</translation>
    </message>
    <message id="192">
        <source>The file %1 could not be opened (system error %2: %3).</source>
        <extracomment>%1 path, %2 system error code, %3 its words</extracomment>
        <translation>No se pudo abrir el archivo %1 (error del sistema %2: %3).</translation>
    </message>
    <message id="193">
        <source>&amp;Refresh</source>
        <extracomment>Menu item</extracomment>
        <translation>&amp;Actualizar</translation>
    </message>
    <message id="194">
        <source>&amp;View</source>
        <extracomment>Menu</extracomment>
        <translation>&amp;Ver</translation>
    </message>
    <message id="195">
        <source>&amp;Save Backup…</source>
        <extracomment>Menu item</extracomment>
        <translation>&amp;Guardar copia de seguridad…</translation>
    </message>
    <message id="196">
        <source>&amp;Restore Backup…</source>
        <extracomment>Menu item</extracomment>
        <translation>&amp;Restaurar copia de seguridad…</translation>
    </message>
    <message id="197">
        <source>Send Command &amp;E</source>
        <extracomment>Menu item</extracomment>
        <translation>Enviar comando &amp;E</translation>
    </message>
    <message id="198">
        <source>Send Command &amp;Q</source>
        <extracomment>Menu item</extracomment>
        <translation>Enviar comando &amp;Q</translation>
    </message>
    <message id="200">
        <source>&amp;Sensor</source>
        <extracomment>Menu</extracomment>
        <translation>&amp;Sensor</translation>
    </message>
    <message id="201">
        <source>&amp;Help</source>
        <extracomment>Menu item</extracomment>
        <translation>&amp;Ayuda</translation>
    </message>
    <message id="202">
        <source>&amp;About…</source>
        <extracomment>Menu item</extracomment>
        <translation>A&amp;cerca de…</translation>
    </message>
    <message id="203">
        <source>&amp;Help</source>
        <extracomment>Menu</extracomment>
        <translation>A&amp;yuda</translation>
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
        <translation>&amp;Idioma</translation>
    </message>
    <message id="210">
        <source>Saving the sensor's parameters…</source>
        <extracomment>Progress dialog</extracomment>
        <translation>Guardando los parámetros del sensor…</translation>
    </message>
    <message id="211">
        <source>Restoring the sensor's parameters…</source>
        <extracomment>Progress dialog</extracomment>
        <translation>Restaurando los parámetros del sensor…</translation>
    </message>
    <message id="212">
        <source>Backup files (*.dat);;All files (*)</source>
        <extracomment>File filter</extracomment>
        <translation>Copias de seguridad (*.dat);;Todos los archivos (*)</translation>
    </message>
    <message id="213">
        <source>This is not a backup file of Pelorin.</source>
        <extracomment>Message</extracomment>
        <translation>Este no es un archivo de copia de seguridad de Pelorin.</translation>
    </message>
    <message id="214">
        <source>Factory Parameters</source>
        <extracomment>Page</extracomment>
        <translation>Parámetros de fábrica</translation>
    </message>
    <message id="215">
        <source>Sensor Package</source>
        <extracomment>Caption and table row</extracomment>
        <translation>Modelo de sensor</translation>
    </message>
    <message id="216">
        <source>Cycle Code M, Suffix</source>
        <extracomment>Table row, last two digits of parameter M</extracomment>
        <translation>Código de ciclo M, sufijo</translation>
    </message>
    <message id="217">
        <source>Writing to the sensor…</source>
        <extracomment>Status bar</extracomment>
        <translation>Escribiendo en el sensor…</translation>
    </message>
    <message id="218">
        <source>About Pelorin</source>
        <extracomment>Dialog title</extracomment>
        <translation>Acerca de Pelorin</translation>
    </message>
    <message id="219">
        <source>0, 2, 4, 8</source>
        <extracomment>In place of a unit: the values that the multiplier may have</extracomment>
        <translation>0, 2, 4, 8</translation>
    </message>
    <message id="228">
        <source>Enter Password</source>
        <extracomment>Dialog title</extracomment>
        <translation>Introducir contraseña</translation>
    </message>
    <message id="235">
        <source>The password is wrong.</source>
        <extracomment>Message</extracomment>
        <translation>La contraseña es incorrecta.</translation>
    </message>
    <message id="238">
        <source>No help files are configured. The program starts without help.</source>
        <extracomment>Message</extracomment>
        <translation>No hay archivos de ayuda configurados. El programa se inicia sin ayuda.</translation>
    </message>
    <message id="239">
        <source>The help could not be shown (language %1, error %2, detail %3).</source>
        <extracomment>%1 language code, %2 error code, %3 detail</extracomment>
        <translation>No se pudo mostrar la ayuda (idioma %1, error %2, detalle %3).</translation>
    </message>
    <message id="240">
        <source>Changing the error skip count is protected. Enter the password to unlock it.</source>
        <extracomment>Note in a dialog</extracomment>
        <translation>El número de errores omitidos está protegido. Introduzca la contraseña para desbloquearlo.</translation>
    </message>
    <message id="241">
        <source>OK</source>
        <extracomment>Button</extracomment>
        <translation>Aceptar</translation>
    </message>
    <message id="242">
        <source>The synchronous measurement mode cannot be combined with the reverse direction.</source>
        <extracomment>Message</extracomment>
        <translation>El modo de medición síncrono no se puede combinar con el sentido inverso.</translation>
    </message>
    <message id="243">
        <source>This value must be 0, 1 or 2.</source>
        <extracomment>Message</extracomment>
        <translation>Este valor debe ser 0, 1 o 2.</translation>
    </message>
    <message id="244">
        <source>Switch the sensor's supply on now, then choose OK.</source>
        <extracomment>Message while the program calls the sensor</extracomment>
        <translation>Conecte ahora la alimentación del sensor y elija después «Aceptar».</translation>
    </message>
    <message id="245">
        <source>Switch the sensor's supply off, then choose OK. Choose Cancel if the sensor is ready for programming already.</source>
        <extracomment>Message with OK and Cancel</extracomment>
        <translation>Desconecte la alimentación del sensor y elija después «Aceptar». Elija «Cancelar» si el sensor ya está listo para programarse.</translation>
    </message>
    <message id="246">
        <source>QDL3 Display Unit</source>
        <extracomment>Menu item and window title, so without a mnemonic</extracomment>
        <translation>Visualizador QDL3</translation>
    </message>
    <message id="247">
        <source>The display unit on %1 (node %2) did not acknowledge its set-up.</source>
        <extracomment>%1 port, %2 node</extracomment>
        <translation>El visualizador en %1 (nodo %2) no confirmó su configuración.</translation>
    </message>
    <message id="248">
        <source>Send</source>
        <extracomment>Caption</extracomment>
        <translation>Envío</translation>
    </message>
    <message id="249">
        <source>Receive</source>
        <extracomment>Caption</extracomment>
        <translation>Recepción</translation>
    </message>
    <message id="250">
        <source>Execute</source>
        <extracomment>Button</extracomment>
        <translation>Ejecutar</translation>
    </message>
    <message id="251">
        <source>Manual Communications</source>
        <extracomment>Menu item and dialog title, so without a mnemonic</extracomment>
        <translation>Comunicación manual</translation>
    </message>
    <message id="252">
        <source>Tables</source>
        <extracomment>Tab</extracomment>
        <translation>Tablas</translation>
    </message>
    <message id="253">
        <source>Temperature Compensation</source>
        <extracomment>Page</extracomment>
        <translation>Compensación de temperatura</translation>
    </message>
    <message id="254">
        <source>Row</source>
        <extracomment>Column heading</extracomment>
        <translation>Fila</translation>
    </message>
    <message id="255">
        <source>Point</source>
        <extracomment>Column heading</extracomment>
        <translation>Punto</translation>
    </message>
    <message id="256">
        <source>Value</source>
        <extracomment>Column heading</extracomment>
        <translation>Valor</translation>
    </message>
    <message id="257">
        <source>Lookup tables (*.csv);;All files (*)</source>
        <extracomment>File filter</extracomment>
        <translation>Tablas de consulta (*.csv);;Todos los archivos (*)</translation>
    </message>
    <message id="258">
        <source>This is not a lookup table for temperature compensation.</source>
        <extracomment>Message</extracomment>
        <translation>Esta no es una tabla de consulta para la compensación de temperatura.</translation>
    </message>
    <message id="259">
        <source>Row</source>
        <extracomment>Column heading</extracomment>
        <translation>Fila</translation>
    </message>
    <message id="260">
        <source>Value %1</source>
        <extracomment>Column heading, %1 number</extracomment>
        <translation>Valor %1</translation>
    </message>
    <message id="261">
        <source>Magnet Position</source>
        <extracomment>Page</extracomment>
        <translation>Posición del imán</translation>
    </message>
    <message id="262">
        <source>Magnet position in mm</source>
        <extracomment>Caption</extracomment>
        <translation>Posición del imán en mm</translation>
    </message>
    <message id="263">
        <source>While this page is shown, the sensor streams its position over the programming line. Its output settings are changed for that and written back when you leave the page. Do not disconnect the sensor before then.</source>
        <extracomment>Note on a page</extracomment>
        <translation>Mientras se muestra esta página, el sensor transmite su posición por la línea de programación. Para ello se modifica su configuración de salida, que se restablece al salir de la página. No desconecte el sensor antes.</translation>
    </message>
    <message id="264">
        <source>The parity extension changes the SSI word that the sensor sends; the controller must be set up for it. Use the parity extension?</source>
        <extracomment>Question</extracomment>
        <translation>La extensión de paridad cambia la palabra SSI que envía el sensor; el controlador debe estar configurado para ella. ¿Usar la extensión de paridad?</translation>
    </message>
    <message id="265">
        <source>In the synchronous measurement mode the controller must clock the sensor regularly. Use the synchronous measurement mode?</source>
        <extracomment>Question</extracomment>
        <translation>En el modo de medición síncrono, el controlador debe enviar regularmente la señal de reloj al sensor. ¿Usar el modo de medición síncrono?</translation>
    </message>
    <message id="1000">
        <source>simulated</source>
        <extracomment>Stands beside the name of a simulated port</extracomment>
        <translation>simulado</translation>
    </message>
    <message id="1001">
        <source>You have no permission to open %1. Add your user to the group %2, then log in again.</source>
        <extracomment>%1 port, %2 group of users</extracomment>
        <translation>No tiene permiso para abrir %1. Añada su usuario al grupo %2 y vuelva a iniciar sesión.</translation>
    </message>
    <message id="1002">
        <source>%1 is in use by another program.</source>
        <extracomment>%1 port</extracomment>
        <translation>%1 está en uso por otro programa.</translation>
    </message>
    <message id="1003">
        <source>The settings file %1 is damaged in line %2. None of its settings are used.</source>
        <extracomment>%1 path, %2 line number</extracomment>
        <translation>El archivo de ajustes %1 está dañado en la línea %2. No se usa ninguno de sus ajustes.</translation>
    </message>
    <message id="1004">
        <source>The profile %1 is damaged. Default values are used; a copy is kept beside it.</source>
        <extracomment>%1 path</extracomment>
        <translation>El perfil %1 está dañado. Se usan valores predeterminados; se conserva una copia junto a él.</translation>
    </message>
    <message id="1005">
        <source>The sensor answered, but no firmware revision bounds are configured. Enter your site's bounds in the settings.</source>
        <extracomment>Tool tip</extracomment>
        <translation>El sensor respondió, pero no hay límites de revisión de firmware configurados. Introduzca los límites de su instalación en los ajustes.</translation>
    </message>
    <message id="1006">
        <source>Green: connected</source>
        <extracomment>State of the link light</extracomment>
        <translation>Verde: conectado</translation>
    </message>
    <message id="1007">
        <source>Red, blinking: not connected</source>
        <extracomment>State of the link light</extracomment>
        <translation>Rojo intermitente: sin conexión</translation>
    </message>
    <message id="1008">
        <source>Gray: no exchange yet</source>
        <extracomment>State of the link light</extracomment>
        <translation>Gris: aún sin intercambio</translation>
    </message>
    <message id="1009">
        <source>Pages</source>
        <extracomment>Accessible name of the page list</extracomment>
        <translation>Páginas</translation>
    </message>
    <message id="1010">
        <source>Port:</source>
        <extracomment>Caption of the list of ports</extracomment>
        <translation>Puerto:</translation>
    </message>
    <message id="1012">
        <source>Operation abandoned: the connection to the sensor was lost.</source>
        <extracomment>Message</extracomment>
        <translation>Operación interrumpida: se perdió la conexión con el sensor.</translation>
    </message>
    <message id="1013">
        <source>The sensor is not identified. Nothing was written.</source>
        <extracomment>Message</extracomment>
        <translation>El sensor no está identificado. No se escribió nada.</translation>
    </message>
    <message id="1014">
        <source>Pelorin Help</source>
        <extracomment>Window title</extracomment>
        <translation>Ayuda de Pelorin</translation>
    </message>
    <message id="1015">
        <source>Link light</source>
        <extracomment>Accessible name</extracomment>
        <translation>Indicador de conexión</translation>
    </message>
    <message id="1016">
        <source>Program icon</source>
        <extracomment>Accessible name</extracomment>
        <translation>Icono del programa</translation>
    </message>
    <message id="1017">
        <source>Version:</source>
        <extracomment>Caption</extracomment>
        <translation>Versión:</translation>
    </message>
    <message id="1018">
        <source>Program:</source>
        <extracomment>Caption</extracomment>
        <translation>Programa:</translation>
    </message>
    <message id="1019">
        <source>No serial port is present. Plug the adapter in.</source>
        <translation>No hay ningún puerto serie. Conecte el adaptador.</translation>
    </message>
    <message id="1020">
        <source>Sensor values</source>
        <extracomment>Accessible name of the table of values</extracomment>
        <translation>Valores del sensor</translation>
    </message>
    <message id="1021">
        <source>Enable Compensation</source>
        <extracomment>Check box</extracomment>
        <translation>Activar compensación</translation>
    </message>
    <message id="1022">
        <source>Lookup Table Arrays</source>
        <extracomment>Caption</extracomment>
        <translation>Tabla de consulta</translation>
    </message>
    <message id="1023">
        <source>Compensation Array</source>
        <extracomment>Caption</extracomment>
        <translation>Tabla de compensación</translation>
    </message>
    <message id="1024">
        <source>Write To Sensor</source>
        <extracomment>Button</extracomment>
        <translation>Escribir en el sensor</translation>
    </message>
    <message id="1025">
        <source>Write To File</source>
        <extracomment>Button</extracomment>
        <translation>Escribir en archivo</translation>
    </message>
    <message id="1026">
        <source>Read From File</source>
        <extracomment>Button</extracomment>
        <translation>Leer de archivo</translation>
    </message>
    <message id="1027">
        <source>The file %1 cannot be read: %2. Its settings are not used.</source>
        <extracomment>%1 path, %2 reason</extracomment>
        <translation>No se puede leer el archivo %1: %2. Sus ajustes no se usan.</translation>
    </message>
    <message id="1028">
        <source>The sensor is being connected, so nothing else was done. Try again when that has ended.</source>
        <translation>El sensor se está conectando, por lo que no se hizo nada más. Inténtelo de nuevo cuando haya terminado.</translation>
    </message>
    <message id="1029">
        <source>The connection to the sensor was lost. Nothing was sent. The sensor is connected again when this dialog is closed.</source>
        <translation>Se perdió la conexión con el sensor. No se envió nada. El sensor se conectará de nuevo al cerrar este cuadro de diálogo.</translation>
    </message>
    <message id="1030">
        <source>The sensor answered, but its firmware revision %1 lies in none of the configured ranges. Check your site's bounds in the settings.</source>
        <extracomment>%1 firmware revision, two hexadecimal digits</extracomment>
        <translation>El sensor respondió, pero su revisión de firmware %1 no está en ninguno de los intervalos configurados. Compruebe los límites de su instalación en los ajustes.</translation>
    </message>
    <message id="1031">
        <source>%1 could not be closed: its device does not react. Until it does, no program can open this port. Unplug the adapter.</source>
        <extracomment>%1 name of the port</extracomment>
        <translation>No se pudo cerrar %1: su dispositivo no reacciona. Mientras no lo haga, ningún programa puede abrir este puerto. Desconecte el adaptador.</translation>
    </message>
    <message id="1100">
        <source>The sensor is not identified. Connect it before its position is shown.</source>
        <translation>El sensor no está identificado. Conéctelo antes de mostrar su posición.</translation>
    </message>
    <message id="1102">
        <source>Switch the sensor's supply off and on again now.</source>
        <translation>Desconecte y vuelva a conectar ahora la alimentación del sensor.</translation>
    </message>
    <message id="1103">
        <source>Note</source>
        <translation>Nota</translation>
    </message>
    <message id="1104">
        <source>Live magnet position in millimetres</source>
        <translation>Posición actual del imán en milímetros</translation>
    </message>
    <message id="1105">
        <source>The sensor's data format could not be kept in %1: %2. Nothing was written to the sensor, so its position cannot be shown.</source>
        <extracomment>%1 path, %2 reason</extracomment>
        <translation>No se pudo conservar en %1 el formato de datos del sensor: %2. No se escribió nada en el sensor, por lo que no se puede mostrar su posición.</translation>
    </message>
    <message id="1106">
        <source>The position stream could not be ended, so nothing else was done. Connect the sensor again.</source>
        <translation>No se pudo terminar la salida continua de posición, por lo que no se hizo nada más. Vuelva a conectar el sensor.</translation>
    </message>
    <message id="1107">
        <source>The sensor on %1 with the version answer %2 may still carry the data format for the position stream: its own one, %3, has not been read back from it. That is written back as soon as the sensor is connected there again.</source>
        <extracomment>%1 device, %2 version answer, %3 data format</extracomment>
        <translation>Es posible que el sensor en %1 con la respuesta de versión %2 tenga aún el formato de datos de la salida continua de posición: el suyo propio, %3, no se ha vuelto a leer. Este se volverá a escribir en cuanto el sensor se conecte allí de nuevo.</translation>
    </message>
    <message id="1108">
        <source>Try again</source>
        <translation>Reintentar</translation>
    </message>
    <message id="1109">
        <source>Forget</source>
        <translation>Olvidar</translation>
    </message>
    <message id="1110">
        <source>Forget the data format %1 of the sensor on %2? It is then not written back any more.</source>
        <extracomment>%1 data format, %2 device</extracomment>
        <translation>¿Olvidar el formato de datos %1 del sensor en %2? Entonces ya no se volverá a escribir.</translation>
    </message>
    <message id="1111">
        <source>The data format of the connected sensor could not be read; it may still be the one for the position stream. Connect the sensor again.</source>
        <translation>No se pudo leer el formato de datos del sensor conectado; puede que sea aún el de la salida continua de posición. Vuelva a conectar el sensor.</translation>
    </message>
    <message id="1112">
        <source>The sensor still carries the data format for the position stream. Nothing was saved or written. Connect the sensor again, so that its own data format is written back.</source>
        <translation>El sensor tiene aún el formato de datos de la salida continua de posición. No se guardó ni se escribió nada. Vuelva a conectar el sensor para que se escriba de nuevo su propio formato de datos.</translation>
    </message>
    <message id="1200">
        <source>Password</source>
        <translation>Contraseña</translation>
    </message>
    <message id="1201">
        <source>The values on this page have not all been read from the sensor as it is connected now. Refresh the page before you apply changes.</source>
        <translation>No todos los valores de esta página se han leído del sensor conectado actualmente. Actualice la página antes de aplicar cambios.</translation>
    </message>
    <message id="1204">
        <source>The error skip count must be a number from 0 to 255.</source>
        <translation>El número de errores omitidos debe estar entre 0 y 255.</translation>
    </message>
    <message id="1205">
        <source>The sensor cannot hold the scale factor or the offset that these settings give. Choose a coarser resolution or another offset. Nothing was written.</source>
        <translation>El sensor no admite el factor de escala o el offset que resultan de estos ajustes. Elija una resolución menos fina u otro offset. No se escribió nada.</translation>
    </message>
    <message id="1206">
        <source>The sensor has no valid resolution, so its offset is not known. Nothing was written.</source>
        <translation>El sensor no tiene una resolución válida, por lo que no se conoce su offset. No se escribió nada.</translation>
    </message>
    <message id="1302">
        <source>This value must not be longer than %1 characters.</source>
        <translation>Este valor no debe tener más de %1 caracteres.</translation>
    </message>
    <message id="1303">
        <source>This value must have exactly %1 characters.</source>
        <translation>Este valor debe tener exactamente %1 caracteres.</translation>
    </message>
    <message id="1304">
        <source>This value must consist of the digits 0 to 9 only.</source>
        <translation>Este valor solo debe contener dígitos del 0 al 9.</translation>
    </message>
    <message id="1305">
        <source>This value must be 0, 2, 4 or 8.</source>
        <translation>Este valor debe ser 0, 2, 4 u 8.</translation>
    </message>
    <message id="1306">
        <source>This value must be a hexadecimal number from 0 to %1.</source>
        <translation>Este valor debe ser un número hexadecimal de 0 a %1.</translation>
    </message>
    <message id="1307">
        <source>This value must be a number from %1 to %2.</source>
        <translation>Este valor debe ser un número de %1 a %2.</translation>
    </message>
    <message id="1308">
        <source>This value may only contain unaccented letters, digits, spaces and ASCII punctuation.</source>
        <translation>Este valor solo puede contener letras sin acento, dígitos, espacios y los signos de puntuación de los caracteres ASCII.</translation>
    </message>
    <message id="1310">
        <source>Parameters written before: %1. Read the sensor's parameters and check them before you use the sensor.</source>
        <translation>Parámetros escritos antes: %1. Lea y compruebe los parámetros del sensor antes de usarlo.</translation>
    </message>
    <message id="1311">
        <source>No parameter had been written before. Read the sensor's parameters and check them before you use the sensor.</source>
        <translation>Antes no se había escrito ningún parámetro. Lea y compruebe los parámetros del sensor antes de usarlo.</translation>
    </message>
    <message id="1320">
        <source>The file %1 could not be written: %2. A file of this name that was there before is unchanged.</source>
        <translation>No se pudo escribir el archivo %1: %2. Si ya existía un archivo con este nombre, no se ha modificado.</translation>
    </message>
    <message id="1321">
        <source>The file %1 could not be read: %2.</source>
        <translation>No se pudo leer el archivo %1: %2.</translation>
    </message>
    <message id="1322">
        <source>The backup file does not hold every parameter that the connected sensor needs. Nothing was written.</source>
        <translation>La copia de seguridad no contiene todos los parámetros que necesita el sensor conectado. No se escribió nada.</translation>
    </message>
    <message id="1323">
        <source>Missing: %1</source>
        <translation>Faltan: %1</translation>
    </message>
    <message id="1324">
        <source>Not usable: %1</source>
        <translation>No utilizables: %1</translation>
    </message>
    <message id="1325">
        <source>Save Backup</source>
        <translation>Guardar copia de seguridad</translation>
    </message>
    <message id="1326">
        <source>Restore Backup</source>
        <translation>Restaurar copia de seguridad</translation>
    </message>
    <message id="1328">
        <source>The sensor is not identified. Connect it before you save its parameters.</source>
        <translation>El sensor no está identificado. Conéctelo antes de guardar sus parámetros.</translation>
    </message>
    <message id="1329">
        <source>Progress</source>
        <translation>Progreso</translation>
    </message>
    <message id="1330">
        <source>Parameter %1 was read as "%2", which is not a valid value: the answer may have been disturbed. Refresh the page. Nothing was written.</source>
        <translation>El parámetro %1 se leyó como «%2», que no es un valor válido: puede que la respuesta llegara alterada. Actualice la página. No se escribió nada.</translation>
    </message>
    <message id="1331">
        <source>The backup was saved. These texts are unusual for their parameters, but the sensor answered each of them twice:</source>
        <extracomment>The texts follow, a line each</extracomment>
        <translation>La copia de seguridad se guardó. Estos textos no son habituales en sus parámetros, pero el sensor respondió dos veces con cada uno:</translation>
    </message>
    <message id="1332">
        <source>The file holds texts that are unusual for their parameters. Write them to the sensor all the same?</source>
        <extracomment>The texts follow, a line each</extracomment>
        <translation>El archivo contiene textos que no son habituales en sus parámetros. ¿Escribirlos en el sensor de todos modos?</translation>
    </message>
    <message id="1400">
        <source>Not hexadecimal, but sent all the same: %1</source>
        <translation>No es hexadecimal, pero se envía igualmente: %1</translation>
    </message>
    <message id="1401">
        <source>field %1 "%2" as %3</source>
        <translation>campo %1 «%2» como %3</translation>
    </message>
    <message id="1402">
        <source>The serial port is not available. Nothing was sent.</source>
        <translation>El puerto serie no está disponible. No se envió nada.</translation>
    </message>
    <message id="1403">
        <source>Cut off: the sensor was still sending after 60 seconds or 1 MiB.</source>
        <translation>Interrumpido: el sensor no dejó de enviar en el límite de 60 segundos y 1 MiB.</translation>
    </message>
    <message id="1404">
        <source>Fields that are not hexadecimal</source>
        <translation>Campos que no son hexadecimales</translation>
    </message>
    <message id="1405">
        <source>Outcome of the exchange</source>
        <translation>Resultado del intercambio</translation>
    </message>
    <message id="1406">
        <source>Copy</source>
        <translation>Copiar</translation>
    </message>
    <message id="1407">
        <source>The serial port was lost during the exchange. What was sent or received may be incomplete.</source>
        <translation>El puerto serie se perdió durante el intercambio. Lo enviado o lo recibido puede estar incompleto.</translation>
    </message>
    <message id="1502">
        <source>The file holds more rows than the table. Rows in the file: %1; read: %2; ignored: %3.</source>
        <translation>El archivo contiene más filas que la tabla. Filas en el archivo: %1; leídas: %2; ignoradas: %3.</translation>
    </message>
    <message id="1503">
        <source>This has no function in this version.</source>
        <translation>Sin función en esta versión.</translation>
    </message>
    <message id="1510">
        <source>The file has been written, but it does not hold these cells as they were typed. A point is kept in steps of 0.5 from -16384.0 to 16383.5, a value as the integer that it begins with, and anything else as 0.</source>
        <translation>El archivo se ha escrito, pero estas celdas figuran en él de otro modo que lo introducido. Un punto se guarda en pasos de 0.5 de -16384.0 a 16383.5, un valor como el número entero con el que empieza, y todo lo demás como 0.</translation>
    </message>
    <message id="1600">
        <source>%1 is the port of the sensor. The display unit needs a port of its own; the value QDL3Comport of the settings names it.</source>
        <translation>%1 es el puerto del sensor. El visualizador necesita un puerto propio, que indica el valor QDL3Comport de los ajustes.</translation>
    </message>
    <message id="1601">
        <source>The port %1 no longer exists. Reconnect its adapter, then close the window of the display unit and open it again.</source>
        <translation>El puerto %1 ya no existe. Vuelva a conectar su adaptador; después cierre la ventana del visualizador y ábrala de nuevo.</translation>
    </message>
    <message id="1602">
        <source>%1 is the port of the display unit. Close the window of the display unit before you choose this port for the sensor.</source>
        <translation>%1 es el puerto del visualizador. Cierre la ventana del visualizador antes de elegir este puerto para el sensor.</translation>
    </message>
    <message id="1603">
        <source>Current reading of the display unit</source>
        <translation>Lectura actual del visualizador</translation>
    </message>
    <message id="1610">
        <source>The display unit has acknowledged the settings.</source>
        <translation>El visualizador ha confirmado los ajustes.</translation>
    </message>
    <message id="1611">
        <source>The display unit has not acknowledged all settings. Some of them may be in effect: apply them again.</source>
        <translation>El visualizador no ha confirmado todos los ajustes. Algunos pueden estar ya activos: aplíquelos de nuevo.</translation>
    </message>
    <message id="1612">
        <source>The value QDL3NodeID of the settings is %1. The display unit needs a node from 0 to 9.</source>
        <extracomment>%1 value</extracomment>
        <translation>El valor QDL3NodeID de los ajustes es %1. El visualizador necesita un nodo de 0 a 9.</translation>
    </message>
    <message id="1700">
        <source>Reading what the sensor has…</source>
        <translation>Leyendo el estado del sensor…</translation>
    </message>
    <message id="1701">
        <source>Restarting the sensor…</source>
        <translation>Reiniciando el sensor…</translation>
    </message>
    <message id="1702">
        <source>Comparing what the sensor has with what was written…</source>
        <translation>Comparando el estado del sensor con lo escrito…</translation>
    </message>
    <message id="1703">
        <source>Verified: after a restart the sensor has all that was written.</source>
        <translation>Verificado: tras un reinicio, el sensor tiene todo lo escrito.</translation>
    </message>
    <message id="1704">
        <source>Differs: the sensor does not have all that was written.</source>
        <translation>Diferencia: el sensor no tiene todo lo escrito.</translation>
    </message>
    <message id="1705">
        <source>Not checked: it is not known what the sensor has.</source>
        <translation>No comprobado: no se sabe qué tiene el sensor.</translation>
    </message>
    <message id="1706">
        <source>Nothing was written.</source>
        <translation>No se ha escrito nada.</translation>
    </message>
    <message id="1707">
        <source>Differs: nothing was changed, the sensor has all that it had before.</source>
        <translation>Diferencia: no ha cambiado nada, el sensor tiene todo lo que tenía antes.</translation>
    </message>
    <message id="1708">
        <source>%1: written %2; the sensor has %3</source>
        <extracomment>%1 parameter, %2 and %3 values</extracomment>
        <translation>%1: escrito %2; el sensor tiene %3</translation>
    </message>
    <message id="1709">
        <source>No usable answer: %1</source>
        <extracomment>%1 parameters</extracomment>
        <translation>Sin respuesta utilizable: %1</translation>
    </message>
    <message id="1710">
        <source>The sensor answers what was written, but it was not restarted and may not have stored it.</source>
        <translation>El sensor responde lo escrito, pero no se ha reiniciado y quizá no lo haya guardado.</translation>
    </message>
    <message id="1711">
        <source>At least a part of what was written could not be read back.</source>
        <translation>Al menos una parte de lo escrito no se pudo volver a leer.</translation>
    </message>
    <message id="1712">
        <source>Another sensor has answered than the one that was written to.</source>
        <translation>Ha respondido otro sensor que aquel en el que se escribió.</translation>
    </message>
    <message id="1713">
        <source>The program was closed before the sensor could be read.</source>
        <translation>El programa se cerró antes de poder leer el sensor.</translation>
    </message>
    <message id="1714">
        <source>Safe writes are switched off.</source>
        <translation>La escritura segura está desactivada.</translation>
    </message>
    <message id="1715">
        <source>It is compared when this sensor is connected again.</source>
        <translation>Se comparará cuando este sensor vuelva a conectarse.</translation>
    </message>
    <message id="1716">
        <source>The offset has come back as it was before it was multiplied: the sensor may divide it.</source>
        <translation>El offset ha vuelto como era antes de multiplicarse: quizá el sensor lo divida.</translation>
    </message>
    <message id="1717">
        <source>The sensor no longer has what is shown: %1. Click Refresh, then enter your changes again.</source>
        <extracomment>%1 parameters</extracomment>
        <translation>El sensor ya no tiene lo que se muestra: %1. Pulse Actualizar y vuelva a introducir los cambios.</translation>
    </message>
    <message id="1718">
        <source>What the sensor has now could not be kept:
%1
Without that it cannot be put back. Write all the same?</source>
        <extracomment>%1 what failed</extracomment>
        <translation>No se ha podido conservar lo que el sensor tiene ahora:
%1
Sin eso no se puede restablecer. ¿Escribir de todos modos?</translation>
    </message>
    <message id="1719">
        <source>These parameters of the sensor could not be read, so that they cannot be put back: %1. Write all the same?</source>
        <extracomment>%1 parameters</extracomment>
        <translation>Estos parámetros del sensor no se han podido leer y no podrán restablecerse: %1. ¿Escribir de todos modos?</translation>
    </message>
    <message id="1720">
        <source>Write All the Same</source>
        <translation>Escribir de todos modos</translation>
    </message>
    <message id="1721">
        <source>Do Not Write</source>
        <translation>No escribir</translation>
    </message>
    <message id="1722">
        <source>Write Again</source>
        <translation>Escribir de nuevo</translation>
    </message>
    <message id="1723">
        <source>Put Back…</source>
        <translation>Restablecer…</translation>
    </message>
    <message id="1724">
        <source>%1 counts</source>
        <extracomment>%1 number</extracomment>
        <translation>%1 pasos</translation>
    </message>
    <message id="1725">
        <source>Notice</source>
        <translation>Aviso</translation>
    </message>
    <message id="1726">
        <source>Another sensor is connected than the one that was written to.</source>
        <translation>El sensor conectado no es aquel en el que se escribió.</translation>
    </message>
    <message id="1730">
        <source>&amp;Compare with Backup…</source>
        <extracomment>Menu item</extracomment>
        <translation>&amp;Comparar con copia de seguridad…</translation>
    </message>
    <message id="1731">
        <source>Compare with Backup</source>
        <translation>Comparar con copia de seguridad</translation>
    </message>
    <message id="1732">
        <source>The sensor no longer has what the review showed: %1. Read it again.</source>
        <extracomment>%1 parameters</extracomment>
        <translation>El sensor ya no tiene lo que mostró la revisión: %1. Vuelva a leerlo.</translation>
    </message>
    <message id="1733">
        <source>Review Before Writing</source>
        <translation>Revisión antes de escribir</translation>
    </message>
    <message id="1734">
        <source>Put Back</source>
        <extracomment>Title</extracomment>
        <translation>Restablecer un estado anterior</translation>
    </message>
    <message id="1735">
        <source>Sensor</source>
        <extracomment>Column heading, and name of the line above the page</extracomment>
        <translation>Sensor</translation>
    </message>
    <message id="1736">
        <source>File</source>
        <extracomment>Column heading</extracomment>
        <translation>Archivo</translation>
    </message>
    <message id="1737">
        <source>Earlier</source>
        <extracomment>Column heading: the value that the sensor had</extracomment>
        <translation>Antes</translation>
    </message>
    <message id="1738">
        <source>%1, in words</source>
        <extracomment>Column heading; %1 whose value</extracomment>
        <translation>%1, en palabras</translation>
    </message>
    <message id="1739">
        <source>Comparison</source>
        <extracomment>Window title and column heading</extracomment>
        <translation>Comparación</translation>
    </message>
    <message id="1740">
        <source>differs</source>
        <extracomment>Of two values</extracomment>
        <translation>distinto</translation>
    </message>
    <message id="1741">
        <source>equal</source>
        <extracomment>Of two values</extracomment>
        <translation>igual</translation>
    </message>
    <message id="1742">
        <source>Name</source>
        <extracomment>Column heading</extracomment>
        <translation>Nombre</translation>
    </message>
    <message id="1743">
        <source>To Be Written</source>
        <extracomment>Column heading</extracomment>
        <translation>Se escribirá</translation>
    </message>
    <message id="1744">
        <source>stays as it is</source>
        <translation>queda como está</translation>
    </message>
    <message id="1745">
        <source>with this sensor's own multiplier</source>
        <translation>con el multiplicador propio de este sensor</translation>
    </message>
    <message id="1746">
        <source>The saved data format asks for the position stream. That is never written.</source>
        <translation>El formato de datos guardado pide la salida continua de posición. Un formato así no se escribe nunca.</translation>
    </message>
    <message id="1747">
        <source>computed from this sensor's own gradient</source>
        <translation>calculado con el gradiente propio de este sensor</translation>
    </message>
    <message id="1748">
        <source>this sensor's own length; the saved offset belongs to another stroke length or multiplier</source>
        <translation>longitud propia de este sensor; el offset guardado pertenece a otra longitud de medición o a otro multiplicador</translation>
    </message>
    <message id="1749">
        <source>The calibration is the saved one: it looks like the same sensor. Suggested: all parameters.</source>
        <translation>La calibración es la guardada: parece el mismo sensor. Propuesta: todos los parámetros.</translation>
    </message>
    <message id="1750">
        <source>The calibration is not the saved one (%1): this may be another sensor.</source>
        <extracomment>%1 parameters</extracomment>
        <translation>La calibración no es la guardada (%1): puede ser otro sensor.</translation>
    </message>
    <message id="1751">
        <source>All parameters: the sensor becomes what was saved, its calibration included</source>
        <translation>Todos los parámetros: el sensor pasa a ser lo que se guardó, incluida su calibración</translation>
    </message>
    <message id="1752">
        <source>Output settings only, for a replaced sensor: this sensor's calibration stays</source>
        <translation>Solo la configuración de salida, para un sensor sustituido: la calibración de este sensor queda</translation>
    </message>
    <message id="1753">
        <source>Write</source>
        <extracomment>Button</extracomment>
        <translation>Escribir</translation>
    </message>
    <message id="1754">
        <source>Comparisons (*.csv);;All files (*)</source>
        <extracomment>File filter</extracomment>
        <translation>Comparaciones (*.csv);;Todos los archivos (*)</translation>
    </message>
    <message id="1755">
        <source>A backup does not hold: %1</source>
        <extracomment>%1 parameters</extracomment>
        <translation>Una copia de seguridad no contiene: %1</translation>
    </message>
    <message id="1756">
        <source>Not as it was then: %1. This may be another sensor than the one whose state was kept.</source>
        <extracomment>%1 parameters</extracomment>
        <translation>No es como entonces: %1. Puede ser otro sensor que aquel cuyo estado se conservó.</translation>
    </message>
    <message id="1757">
        <source>The measurement direction differs, and the saved offset cannot be taken over: it is to be calculated on the page Output Setup.</source>
        <translation>El sentido de medición es distinto y el offset guardado no se puede tomar: debe calcularse en la página Configuración de salida.</translation>
    </message>
    <message id="1758">
        <source>Nothing differs: the sensor already has all that would be written. Nothing was written.</source>
        <translation>No hay diferencias: el sensor ya tiene todo lo que se escribiría. No se escribió nada.</translation>
    </message>
    <message id="1759">
        <source>This state was kept of a sensor of another type. Nothing was written.</source>
        <translation>Este estado es de un sensor de otro tipo. No se escribió nada.</translation>
    </message>
    <message id="1760">
        <source>E&amp;arlier States…</source>
        <translation>Estados &amp;anteriores…</translation>
    </message>
    <message id="1761">
        <source>Earlier States</source>
        <translation>Estados anteriores</translation>
    </message>
    <message id="1762">
        <source>Only of the connected sensor</source>
        <translation>Solo del sensor conectado</translation>
    </message>
    <message id="1763">
        <source>Time</source>
        <translation>Hora</translation>
    </message>
    <message id="1764">
        <source>Port and Device</source>
        <translation>Puerto y dispositivo</translation>
    </message>
    <message id="1765">
        <source>Revision</source>
        <translation>Revisión</translation>
    </message>
    <message id="1766">
        <source>Written By</source>
        <translation>Escrito por</translation>
    </message>
    <message id="1767">
        <source>Written</source>
        <translation>Escrito</translation>
    </message>
    <message id="1768">
        <source>Outcome</source>
        <translation>Resultado</translation>
    </message>
    <message id="1769">
        <source>Before</source>
        <translation>Antes</translation>
    </message>
    <message id="1770">
        <source>%1 (raw)</source>
        <extracomment>%1: Before, or Written</extracomment>
        <translation>%1 (sin formato)</translation>
    </message>
    <message id="1771">
        <source>Unfinished: it is not known how much of it was written.</source>
        <translation>Sin terminar: no se sabe cuánto de ello se ha escrito.</translation>
    </message>
    <message id="1772">
        <source>Files in %1 that could not be read: %2</source>
        <extracomment>%1: folder, %2: how many</extracomment>
        <translation>Archivos de %1 que no se han podido leer: %2</translation>
    </message>
    <message id="1773">
        <source>Delete…</source>
        <translation>Eliminar…</translation>
    </message>
    <message id="1774">
        <source>Delete the state of %1? It can then not be put back any more.</source>
        <extracomment>%1: time</extracomment>
        <translation>¿Eliminar el estado del %1? Entonces ya no se podrá restablecer.</translation>
    </message>
    <message id="1775">
        <source>Close</source>
        <translation>Cerrar</translation>
    </message>
    <message id="1776">
        <source>A write to a sensor (%1, %2) on %3 was not finished. If it was this sensor, it has all of it, a part of it or nothing.</source>
        <extracomment>%1: device, %2: version answer, %3: time; which sensor it was is known by these alone</extracomment>
        <translation>Una escritura en un sensor (%1, %2) del %3 quedó sin terminar. Si era este sensor, lo tiene todo, una parte o nada.</translation>
    </message>
    <message id="1777">
        <source>Show…</source>
        <translation>Mostrar…</translation>
    </message>
    <message id="1778">
        <source>Earlier state put back</source>
        <translation>Estado anterior restablecido</translation>
    </message>
    <message id="1779">
        <source>Command line</source>
        <translation>Línea de comandos</translation>
    </message>
    <message id="1780">
        <source>Changes not applied: %1</source>
        <extracomment>%1 number, from 1 on</extracomment>
        <translation>Cambios sin aplicar: %1</translation>
    </message>
    <message id="1781">
        <source>Changes on this page that have not been applied: %1. Discard them?</source>
        <extracomment>%1 number, from 1 on</extracomment>
        <translation>Cambios de esta página que no se han aplicado: %1. ¿Desea descartarlos?</translation>
    </message>
    <message id="1782">
        <source>Stay</source>
        <translation>Permanecer</translation>
    </message>
    <message id="1783">
        <source>Discard</source>
        <translation>Descartar</translation>
    </message>
    <message id="1784">
        <source>Read: %1</source>
        <extracomment>%1 value</extracomment>
        <translation>Leído: %1</translation>
    </message>
    <message id="1785">
        <source>Nothing was read that can be shown here.</source>
        <translation>No se ha leído nada que pueda mostrarse aquí.</translation>
    </message>
    <message id="1786">
        <source>Nothing was changed. Write the values all the same?</source>
        <translation>No se ha cambiado nada. ¿Desea escribir los valores de todos modos?</translation>
    </message>
    <message id="1800">
        <source>The data format has the multiplier %1, and the offset was not entered anew. What shall be written?</source>
        <extracomment>%1 multiplier</extracomment>
        <translation>El formato de datos tiene el multiplicador %1 y el offset no se ha introducido de nuevo. ¿Qué debe escribirse?</translation>
    </message>
    <message id="1801">
        <source>Offset so far: %1</source>
        <extracomment>%1: counts and length</extracomment>
        <translation>Offset hasta ahora: %1</translation>
    </message>
    <message id="1802">
        <source>Keep the length: %1</source>
        <extracomment>%1 counts and length</extracomment>
        <translation>Conservar la longitud: %1</translation>
    </message>
    <message id="1803">
        <source>Write it multiplied: %1</source>
        <extracomment>%1 counts and length</extracomment>
        <translation>Escribir multiplicado: %1</translation>
    </message>
    <message id="1804">
        <source>Keep the Length</source>
        <translation>Conservar la longitud</translation>
    </message>
    <message id="1805">
        <source>Write It Multiplied</source>
        <translation>Escribir multiplicado</translation>
    </message>
    <message id="1815">
        <source>Reading the data format…</source>
        <translation>Leyendo el formato de datos…</translation>
    </message>
    <message id="1816">
        <source>Writing the data format for the position stream…</source>
        <translation>Escribiendo el formato de datos para la salida continua de posición…</translation>
    </message>
    <message id="1817">
        <source>Waiting for the sensor to store the data format…</source>
        <translation>El sensor guarda el formato de datos…</translation>
    </message>
    <message id="1818">
        <source>Restarting the sensor…</source>
        <translation>Reiniciando el sensor…</translation>
    </message>
    <message id="1819">
        <source>Waiting for the position stream…</source>
        <translation>Esperando la salida continua de posición…</translation>
    </message>
    <message id="1820">
        <source>Ending the position stream and connecting the sensor…</source>
        <translation>Terminando la salida continua de posición y conectando el sensor…</translation>
    </message>
    <message id="1821">
        <source>Writing the sensor's own data format back…</source>
        <translation>Volviendo a escribir el formato de datos propio del sensor…</translation>
    </message>
    <message id="1830">
        <source>Time Shown</source>
        <extracomment>Caption of a list of durations</extracomment>
        <translation>Tiempo mostrado</translation>
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
        <translation>Toda la grabación</translation>
    </message>
    <message id="1834">
        <source>Hold Range</source>
        <extracomment>Check box: the range of the position axis stays as it is</extracomment>
        <translation>Fijar el rango</translation>
    </message>
    <message id="1835">
        <source>Pause</source>
        <extracomment>Button that stays pressed</extracomment>
        <translation>Pausa</translation>
    </message>
    <message id="1836">
        <source>Zero Here</source>
        <extracomment>Button that stays pressed: positions are shown relative to this one</extracomment>
        <translation>Cero aquí</translation>
    </message>
    <message id="1837">
        <source>Record…</source>
        <extracomment>Button</extracomment>
        <translation>Grabar…</translation>
    </message>
    <message id="1838">
        <source>Stop Recording</source>
        <extracomment>Button</extracomment>
        <translation>Detener la grabación</translation>
    </message>
    <message id="1839">
        <source>Open Recording…</source>
        <extracomment>Button</extracomment>
        <translation>Abrir grabación…</translation>
    </message>
    <message id="1840">
        <source>Minimum</source>
        <extracomment>Figure</extracomment>
        <translation>Mínimo</translation>
    </message>
    <message id="1841">
        <source>Maximum</source>
        <extracomment>Figure</extracomment>
        <translation>Máximo</translation>
    </message>
    <message id="1842">
        <source>Span</source>
        <extracomment>Figure: maximum less minimum</extracomment>
        <translation>Amplitud</translation>
    </message>
    <message id="1843">
        <source>Mean</source>
        <extracomment>Figure</extracomment>
        <translation>Media</translation>
    </message>
    <message id="1844">
        <source>Standard Deviation</source>
        <extracomment>Figure</extracomment>
        <translation>Desviación típica</translation>
    </message>
    <message id="1845">
        <source>Positions per Second</source>
        <extracomment>Figure</extracomment>
        <translation>Posiciones por segundo</translation>
    </message>
    <message id="1846">
        <source>Malformed Frames</source>
        <extracomment>Figure: what came and was no position</extracomment>
        <translation>Tramas erróneas</translation>
    </message>
    <message id="1847">
        <source>Time at the Cursor</source>
        <extracomment>Figure</extracomment>
        <translation>Tiempo en el cursor</translation>
    </message>
    <message id="1848">
        <source>Position at the Cursor</source>
        <extracomment>Figure</extracomment>
        <translation>Posición en el cursor</translation>
    </message>
    <message id="1849">
        <source>Trace of the position</source>
        <extracomment>For screen readers</extracomment>
        <translation>Gráfico de la posición</translation>
    </message>
    <message id="1850">
        <source>No positions</source>
        <extracomment>In place of the trace</extracomment>
        <translation>Sin posiciones</translation>
    </message>
    <message id="1851">
        <source>Relative to %1 mm</source>
        <extracomment>%1 position</extracomment>
        <translation>Relativo a %1 mm</translation>
    </message>
    <message id="1852">
        <source>The recording %1 has ended: %2. What was recorded before is in the file.</source>
        <extracomment>%1 path, %2 the system's reason</extracomment>
        <translation>La grabación %1 ha terminado: %2. Lo grabado antes está en el archivo.</translation>
    </message>
    <message id="1853">
        <source>The file %1 is no recording of positions that this version can read: line 1 is not the first line of one.</source>
        <extracomment>%1 path</extracomment>
        <translation>El archivo %1 no es una grabación de posiciones que esta versión pueda leer: la línea 1 no es la primera de una grabación.</translation>
    </message>
    <message id="1854">
        <source>The recording %1 is damaged at line %2. Lines that could not be read: %3. All others are shown.</source>
        <extracomment>%1 path, %2 number of the first such line, %3 count</extracomment>
        <translation>La grabación %1 está dañada en la línea %2. Líneas que no se pudieron leer: %3. Se muestran todas las demás.</translation>
    </message>
    <message id="1855">
        <source>Recording %1</source>
        <extracomment>Title of a window, %1 file name</extracomment>
        <translation>Grabación %1</translation>
    </message>
    <message id="1856">
        <source>Sensor version %1, type %2, port %3, resolution %4 mm, begun %5 (UTC)</source>
        <extracomment>What a recording tells of itself</extracomment>
        <translation>Versión del sensor %1, tipo %2, puerto %3, resolución %4 mm, inicio %5 (UTC)</translation>
    </message>
    <message id="1857">
        <source>All Decimals</source>
        <extracomment>Check box: the position is shown with the decimals of the resolution</extracomment>
        <translation>Todos los decimales</translation>
    </message>
    <message id="1858">
        <source>Recordings (*.csv);;All files (*)</source>
        <extracomment>File filter</extracomment>
        <translation>Grabaciones (*.csv);;Todos los archivos (*)</translation>
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
        <translation>Hueco más largo</translation>
    </message>
    <message id="1862">
        <source>Recorded</source>
        <extracomment>Figure beside a trace: how many seconds have been recorded</extracomment>
        <translation>Grabado</translation>
    </message>
    <message id="1870">
        <source>Output settings only is not possible: the page Output Setup does not offer what the file has: %1</source>
        <extracomment>%1: parameters</extracomment>
        <translation>Solo la configuración de salida no es posible: la página Configuración de salida no ofrece lo que tiene el archivo: %1</translation>
    </message>
    <message id="1900">
        <source>&amp;Settings…</source>
        <translation>&amp;Ajustes…</translation>
    </message>
    <message id="1901">
        <source>Settings</source>
        <translation>Ajustes</translation>
    </message>
    <message id="1902">
        <source>Sensor Types</source>
        <translation>Tipos de sensor</translation>
    </message>
    <message id="1903">
        <source>General</source>
        <translation>General</translation>
    </message>
    <message id="1904">
        <source>Ports</source>
        <translation>Puertos</translation>
    </message>
    <message id="1905">
        <source>Sensor Packages</source>
        <translation>Modelos de sensor</translation>
    </message>
    <message id="1906">
        <source>Display Unit</source>
        <translation>Visualizador</translation>
    </message>
    <message id="1908">
        <source>Lowest Revision (hexadecimal)</source>
        <translation>Revisión más baja (hexadecimal)</translation>
    </message>
    <message id="1909">
        <source>Highest Revision (hexadecimal)</source>
        <translation>Revisión más alta (hexadecimal)</translation>
    </message>
    <message id="1910">
        <source>The connected sensor has the revision %1 (version answer %2).</source>
        <translation>El sensor conectado tiene la revisión %1 (respuesta de versión %2).</translation>
    </message>
    <message id="1911">
        <source>No sensor has answered.</source>
        <translation>Ningún sensor ha respondido.</translation>
    </message>
    <message id="1912">
        <source>Types %1 and %2 both have the revisions %3 to %4: a sensor with one of them counts as type %1.</source>
        <translation>Los tipos %1 y %2 tienen ambos las revisiones %3 a %4: un sensor con una de ellas cuenta como tipo %1.</translation>
    </message>
    <message id="1913">
        <source>The sensor's supply is switched by hand</source>
        <translation>La alimentación del sensor se conmuta a mano</translation>
    </message>
    <message id="1914">
        <source>Safe writes: keep what the sensor had, restart it and compare what was written</source>
        <translation>Escritura segura: conservar lo anterior, reiniciar el sensor y comparar lo escrito</translation>
    </message>
    <message id="1915">
        <source>Show the page for temperature compensation</source>
        <translation>Mostrar la página de compensación de temperatura</translation>
    </message>
    <message id="1916">
        <source>Offer the display unit in the View menu</source>
        <translation>Ofrecer el visualizador en el menú Ver</translation>
    </message>
    <message id="1917">
        <source>Node:</source>
        <translation>Nodo:</translation>
    </message>
    <message id="1918">
        <source>Device</source>
        <translation>Dispositivo</translation>
    </message>
    <message id="1919">
        <source>Description</source>
        <translation>Descripción</translation>
    </message>
    <message id="1920">
        <source>COM Number</source>
        <translation>Número COM</translation>
    </message>
    <message id="1921">
        <source>not present</source>
        <translation>no presente</translation>
    </message>
    <message id="1922">
        <source>Add</source>
        <translation>Añadir</translation>
    </message>
    <message id="1923">
        <source>Remove</source>
        <translation>Quitar</translation>
    </message>
    <message id="1924">
        <source>Import…</source>
        <translation>Importar…</translation>
    </message>
    <message id="1925">
        <source>Use the Site's Settings Again…</source>
        <translation>Volver a usar los ajustes de la instalación…</translation>
    </message>
    <message id="1926">
        <source>These settings are those of the file %1.</source>
        <translation>Estos ajustes son los del archivo %1.</translation>
    </message>
    <message id="1927">
        <source>These settings are those of the file %1. A change makes a copy of them, %2. From then on %1 is no longer read.</source>
        <translation>Estos ajustes son los del archivo %1. Un cambio crea una copia, %2. A partir de entonces %1 ya no se lee.</translation>
    </message>
    <message id="1928">
        <source>These settings are shown only: the file %1 cannot be written: %2.</source>
        <translation>Estos ajustes solo se muestran: no se puede escribir el archivo %1: %2.</translation>
    </message>
    <message id="1929">
        <source>Settings files (*.reg);;All files (*)</source>
        <translation>Archivos de ajustes (*.reg);;Todos los archivos (*)</translation>
    </message>
    <message id="1930">
        <source>Type %1: the lowest revision is above the highest one.</source>
        <translation>Tipo %1: la revisión más baja está por encima de la más alta.</translation>
    </message>
    <message id="1931">
        <source>%1 is the number of two devices, %2 and %3. Give one of them another number.</source>
        <translation>%1 es el número de dos dispositivos, %2 y %3. Dé otro número a uno de ellos.</translation>
    </message>
    <message id="1932">
        <source>“%1” is no COM number for %2. Enter a number from 1 on, or nothing.</source>
        <translation>«%1» no es un número COM para %2. Introduzca un número a partir de 1, o nada.</translation>
    </message>
    <message id="1933">
        <source>The sensor's port is %1: the display unit needs another one.</source>
        <translation>El puerto del sensor es %1: el visualizador necesita otro.</translation>
    </message>
    <message id="1934">
        <source>Package %1: “%2” is no distance in millimetres.</source>
        <translation>Modelo %1: «%2» no es una distancia en milímetros.</translation>
    </message>
    <message id="1935">
        <source>The package in row %1 needs a name.</source>
        <translation>El modelo de la fila %1 necesita un nombre.</translation>
    </message>
    <message id="1936">
        <source>The file %1 has changed since it was read. It can be overwritten with what is entered here, or read again, which gives up what is entered.</source>
        <translation>El archivo %1 ha cambiado desde que se leyó. Se puede sobrescribir con lo introducido aquí o leer de nuevo, con lo que se pierde lo introducido.</translation>
    </message>
    <message id="1937">
        <source>Overwrite</source>
        <translation>Sobrescribir</translation>
    </message>
    <message id="1938">
        <source>Read Again</source>
        <translation>Leer de nuevo</translation>
    </message>
    <message id="1939">
        <source>The tables of the page for temperature compensation hold values, which are lost when the page is no longer shown. Go on?</source>
        <translation>Las tablas de la página de compensación de temperatura contienen valores que se pierden si la página deja de mostrarse. ¿Continuar?</translation>
    </message>
    <message id="1940">
        <source>Your settings file is renamed to %1, and what is entered here is given up. The site's settings are in force again then. Go on?</source>
        <translation>Su archivo de ajustes pasa a llamarse %1 y lo introducido aquí se descarta. Entonces vuelven a regir los ajustes de la instalación. ¿Continuar?</translation>
    </message>
    <message id="1941">
        <source>COM%1 has become another device, so the port was closed. Choose where to connect.</source>
        <translation>COM%1 es ahora otro dispositivo, por lo que se cerró el puerto. Elija dónde conectar.</translation>
    </message>
    <message id="1942">
        <source>The sensor is in use: nothing was changed. Try again when that has ended.</source>
        <translation>El sensor está en uso: no se cambió nada. Inténtelo de nuevo cuando haya terminado.</translation>
    </message>
    <message id="1943">
        <source>The file %1 holds no sensor packages.</source>
        <translation>El archivo %1 no contiene modelos de sensor.</translation>
    </message>
    <message id="1944">
        <source>Import Sensor Packages</source>
        <translation>Importar modelos de sensor</translation>
    </message>
    <message id="1960">
        <source>new number</source>
        <extracomment>In the list of ports, in the place of COM7: the device gets a number when it is chosen</extracomment>
        <translation>número nuevo</translation>
    </message>
    <message id="1961">
        <source>No serial adapter is plugged in. As soon as one is, it appears in the list.</source>
        <translation>No hay ningún adaptador serie conectado. En cuanto se conecte, aparecerá en la lista.</translation>
    </message>
    <message id="1962">
        <source>%1 is not there. Plug the adapter in, or choose another port.</source>
        <translation>%1 no está presente. Conecte el adaptador o elija otro puerto.</translation>
    </message>
    <message id="1963">
        <source>Without a Port</source>
        <extracomment>Button</extracomment>
        <translation>Sin puerto</translation>
    </message>
    <message id="1964">
        <source>Demonstration</source>
        <extracomment>Button</extracomment>
        <translation>Demostración</translation>
    </message>
    <message id="1965">
        <source>No port is open: there is no sensor to work with. Everything that needs none can be used.</source>
        <extracomment>Above the page</extracomment>
        <translation>No hay ningún puerto abierto: no hay sensor con el que trabajar. Todo lo que no necesita uno se puede usar.</translation>
    </message>
    <message id="1966">
        <source>Not identified: the sensor answered with firmware revision %1 (decimal %2). Ranges set: %3.</source>
        <extracomment>%3 is a list of 1967 and 1968</extracomment>
        <translation>No identificado: el sensor respondió con la revisión de firmware %1 (decimal %2). Intervalos definidos: %3.</translation>
    </message>
    <message id="1967">
        <source>type %1: %2 to %3</source>
        <translation>tipo %1: %2 a %3</translation>
    </message>
    <message id="1968">
        <source>type %1: none</source>
        <translation>tipo %1: ninguno</translation>
    </message>
    <message id="1969">
        <source>Use as Type</source>
        <extracomment>Button that opens a menu</extracomment>
        <translation>Usar como tipo</translation>
    </message>
    <message id="1971">
        <source>Always type %1: from now on %2 to %3, so far %4 to %5</source>
        <extracomment>Menu item: widens the range of revisions in the settings</extracomment>
        <translation>Siempre tipo %1: desde ahora %2 a %3, hasta ahora %4 a %5</translation>
    </message>
    <message id="1972">
        <source>Always type %1: from now on %2 to %2, so far none</source>
        <translation>Siempre tipo %1: desde ahora %2 a %2, hasta ahora ninguno</translation>
    </message>
    <message id="1973">
        <source>Firmware revision %1 is used as type %2: chosen by hand.</source>
        <translation>La revisión de firmware %1 se usa como tipo %2: elegido a mano.</translation>
    </message>
    <message id="1974">
        <source>%1, chosen by hand</source>
        <extracomment>A sensor type</extracomment>
        <translation>%1, elegido a mano</translation>
    </message>
    <message id="1975">
        <source>The range is entered in a settings file of your own, a copy of the one that is read now.

From then on %1 is read, and %2 no longer.</source>
        <translation>El intervalo se anota en un archivo de ajustes propio, copia del que se lee ahora.

Desde entonces se lee %1, y %2 ya no.</translation>
    </message>
    <message id="1976">
        <source>Last files:</source>
        <extracomment>In the file dialog, before a list</extracomment>
        <translation>Últimos archivos:</translation>
    </message>
    <message id="1977">
        <source>COM%1 is being opened. That can take up to 20 seconds while another program looks at an adapter that has just been plugged in.</source>
        <extracomment>Box while a port is opened, with a button that leads to the choice of another port</extracomment>
        <translation>Se está abriendo COM%1. Puede tardar hasta 20 segundos mientras otro programa examina un adaptador recién conectado.</translation>
    </message>
    <message id="2000">
        <source>The sensor's port: a COM number, the path of a device, or simulator:...</source>
        <extracomment>Help of pelorin-cli, as all up to 2019</extracomment>
        <translation>El puerto del sensor: un número COM, la ruta de un dispositivo o simulator:...</translation>
    </message>
    <message id="2001">
        <source>Prints one JSON object instead of words.</source>
        <translation>Muestra un objeto JSON en lugar de palabras.</translation>
    </message>
    <message id="2002">
        <source>The sensor's type, for a firmware revision that lies in no configured range.</source>
        <translation>El tipo del sensor, para una revisión de firmware fuera de todos los intervalos configurados.</translation>
    </message>
    <message id="2003">
        <source>You switch the sensor's supply by hand, and are told when.</source>
        <translation>Usted conmuta la alimentación del sensor a mano cuando se le indica.</translation>
    </message>
    <message id="2004">
        <source>Repeats the connecting for so long until a sensor answers.</source>
        <translation>Repite la conexión durante ese tiempo hasta que un sensor responda.</translation>
    </message>
    <message id="2005">
        <source>Saves the communications log to a file.</source>
        <translation>Guarda el registro de comunicación en un archivo.</translation>
    </message>
    <message id="2006">
        <source>The settings file to be used.</source>
        <translation>El archivo de ajustes que se usará.</translation>
    </message>
    <message id="2007">
        <source>The language: 1 English, 2 German, 4 French, 8 Spanish, 16 Italian.</source>
        <translation>El idioma: 1 inglés, 2 alemán, 4 francés, 8 español, 16 italiano.</translation>
    </message>
    <message id="2008">
        <source>Answers yes to what would be asked.</source>
        <translation>Responde sí a lo que se preguntaría.</translation>
    </message>
    <message id="2009">
        <source>Writes nothing, neither to a sensor nor to a file other than that of --log.</source>
        <translation>No escribe nada, ni en un sensor ni en un archivo que no sea el de --log.</translation>
    </message>
    <message id="2010">
        <source>Shows this help.</source>
        <translation>Muestra esta ayuda.</translation>
    </message>
    <message id="2011">
        <source>Shows the program's version.</source>
        <translation>Muestra la versión del programa.</translation>
    </message>
    <message id="2012">
        <source>Lists the serial ports of this computer.</source>
        <translation>Enumera los puertos serie de este ordenador.</translation>
    </message>
    <message id="2013">
        <source>Reads all parameters of a sensor and shows what they mean.</source>
        <translation>Lee todos los parámetros de un sensor y muestra su significado.</translation>
    </message>
    <message id="2014">
        <source>Reads parameters and shows their texts as they are. The sensor need not be identified.</source>
        <translation>Lee parámetros y muestra sus textos tal como son. El sensor puede no estar identificado.</translation>
    </message>
    <message id="2015">
        <source>Saves all parameters of a sensor to a backup file.</source>
        <translation>Guarda todos los parámetros de un sensor en un archivo de copia de seguridad.</translation>
    </message>
    <message id="2016">
        <source>Compares a sensor with a backup file, or two backup files.</source>
        <translation>Compara un sensor con un archivo de copia de seguridad, o dos de estos archivos.</translation>
    </message>
    <message id="2017">
        <source>Shows what a backup file or a lookup table holds.</source>
        <translation>Muestra lo que contiene un archivo de copia de seguridad o una tabla de consulta.</translation>
    </message>
    <message id="2020">
        <source>%2 is no value that %1 can have.</source>
        <extracomment>%1 option, %2 what was given</extracomment>
        <translation>%2 no es un valor posible de %1.</translation>
    </message>
    <message id="2021">
        <source>Name the sensor's port with --port.</source>
        <translation>Indique el puerto del sensor con --port.</translation>
    </message>
    <message id="2022">
        <source>The command is used like this:
%1</source>
        <extracomment>%1 command line</extracomment>
        <translation>El comando se usa así:
%1</translation>
    </message>
    <message id="2023">
        <source>The sensor's supply is switched by hand, but there is no terminal at which you could be told when.</source>
        <translation>La alimentación del sensor se conmuta a mano, pero no hay un terminal donde indicarle cuándo.</translation>
    </message>
    <message id="2024">
        <source>There is no command "%1". All are listed by --help.</source>
        <extracomment>%1 what was given</extracomment>
        <translation>No existe el comando «%1». --help los enumera todos.</translation>
    </message>
    <message id="2025">
        <source>The language cannot be loaded.</source>
        <translation>No se puede cargar el idioma.</translation>
    </message>
    <message id="2026">
        <source>%1 stands for no device.</source>
        <extracomment>%1 COM number</extracomment>
        <translation>%1 no designa ningún dispositivo.</translation>
    </message>
    <message id="2027">
        <source>Switch the sensor's supply off, then press Enter. Type n and Enter if the sensor is ready for programming already.</source>
        <translation>Desconecte la alimentación del sensor y pulse Intro. Escriba n e Intro si el sensor ya está listo para la programación.</translation>
    </message>
    <message id="2028">
        <source>Switch the sensor's supply on now, then press Enter.</source>
        <translation>Conecte ahora la alimentación del sensor y pulse Intro.</translation>
    </message>
    <message id="2029">
        <source>The sensor's firmware revision %1 is that of type %2, not of the one that was named. Nothing else was done.</source>
        <extracomment>%1 revision, %2 type</extracomment>
        <translation>La revisión %1 del firmware del sensor es la del tipo %2, no la del indicado. No se hizo nada más.</translation>
    </message>
    <message id="2030">
        <source>Interrupted.</source>
        <translation>Interrumpido.</translation>
    </message>
    <message id="2031">
        <source>The results could not be written to standard output: %1.</source>
        <extracomment>%1 reason</extracomment>
        <translation>Los resultados no se pudieron escribir en la salida estándar: %1.</translation>
    </message>
    <message id="2032">
        <source>yes</source>
        <extracomment>Typed as an answer; its first letter is enough</extracomment>
        <translation>sí</translation>
    </message>
    <message id="2033">
        <source>The file %1 exists. Overwrite it?</source>
        <extracomment>%1 path</extracomment>
        <translation>El archivo %1 existe. ¿Sobrescribirlo?</translation>
    </message>
    <message id="2034">
        <source>The file %1 exists and was not overwritten. --yes overwrites it.</source>
        <extracomment>%1 path</extracomment>
        <translation>El archivo %1 existe y no se sobrescribió. --yes lo sobrescribe.</translation>
    </message>
    <message id="2035">
        <source>%1 is no parameter of a sensor.</source>
        <extracomment>%1 what was given</extracomment>
        <translation>%1 no es un parámetro de un sensor.</translation>
    </message>
    <message id="2036">
        <source>The file %1 is neither a backup file nor a lookup table.</source>
        <extracomment>%1 path</extracomment>
        <translation>El archivo %1 no es ni un archivo de copia de seguridad ni una tabla de consulta.</translation>
    </message>
    <message id="2037">
        <source>Sensor of type %1, version answer %2</source>
        <translation>Sensor de tipo %1, respuesta de versión %2</translation>
    </message>
    <message id="2038">
        <source>Sensor of type %1 (chosen by hand), version answer %2</source>
        <translation>Sensor de tipo %1 (elegido a mano), respuesta de versión %2</translation>
    </message>
    <message id="2039">
        <source>Sensor that is not identified, version answer %1</source>
        <translation>Sensor no identificado, respuesta de versión %1</translation>
    </message>
    <message id="2040">
        <source>All are equal.</source>
        <extracomment>Parameters of a comparison</extracomment>
        <translation>Todos son iguales.</translation>
    </message>
    <message id="2041">
        <source>not there</source>
        <extracomment>Of a parameter in a file</extracomment>
        <translation>no existe</translation>
    </message>
    <message id="2042">
        <source>The settings file %1 does not exist.</source>
        <extracomment>%1 path</extracomment>
        <translation>El archivo de ajustes %1 no existe.</translation>
    </message>
    <message id="2060">
        <source>Writes saved parameters to a sensor, restarts it and compares.</source>
        <translation>Escribe parámetros guardados en un sensor, lo reinicia y compara.</translation>
    </message>
    <message id="2061">
        <source>Changes output settings of a sensor, restarts it and compares. What is not named stays.</source>
        <translation>Cambia ajustes de salida de un sensor, lo reinicia y compara. Lo que no se nombra se mantiene.</translation>
    </message>
    <message id="2062">
        <source>Shows the magnet's position until the time is over or the command is ended.</source>
        <translation>Muestra la posición del imán hasta que acabe el tiempo o la orden.</translation>
    </message>
    <message id="2063">
        <source>Lists the states that sensors had before they were written to, shows one, or puts one back.</source>
        <translation>Enumera los estados que tenían los sensores antes de escribirse, muestra uno o lo restablece.</translation>
    </message>
    <message id="2064">
        <source>Writes even if what the sensor has now cannot be kept in the journal.</source>
        <translation>Escribe aunque no pueda conservarse lo que el sensor tiene ahora.</translation>
    </message>
    <message id="2065">
        <source>The password that skip-count needs.</source>
        <translation>La contraseña que exige skip-count.</translation>
    </message>
    <message id="2066">
        <source>What is written for an offset that is not named while the data format has a multiplier.</source>
        <translation>Lo que se escribe para un offset no nombrado si el formato de datos tiene un multiplicador.</translation>
    </message>
    <message id="2067">
        <source>How long the position is shown.</source>
        <translation>Cuánto tiempo se muestra la posición.</translation>
    </message>
    <message id="2068">
        <source>Records the positions in a file.</source>
        <translation>Registra las posiciones en un archivo.</translation>
    </message>
    <message id="2070">
        <source>Say what is to be written: --all or --output-only.</source>
        <translation>Indique qué debe escribirse: --all o --output-only.</translation>
    </message>
    <message id="2071">
        <source>Write this to the sensor?</source>
        <translation>¿Escribir esto en el sensor?</translation>
    </message>
    <message id="2072">
        <source>Nothing was written, because nobody has agreed. --yes agrees.</source>
        <translation>No se ha escrito nada, porque nadie ha dado su conformidad. --yes la da.</translation>
    </message>
    <message id="2073">
        <source>--no-journal writes all the same.</source>
        <translation>--no-journal escribe de todos modos.</translation>
    </message>
    <message id="2074">
        <source>While safe writes are switched off the sensor is not read before: a backup can only be restored with --all. Nothing was written.</source>
        <translation>Mientras la escritura segura esté desactivada, el sensor no se lee antes: una copia solo puede restaurarse con --all. No se ha escrito nada.</translation>
    </message>
    <message id="2075">
        <source>%1 is no setting. Settings are written NAME=VALUE, with these names: %2</source>
        <extracomment>%1 what was given, %2 names</extracomment>
        <translation>%1 no es un ajuste. Los ajustes se escriben NOMBRE=VALOR, con estos nombres: %2</translation>
    </message>
    <message id="2076">
        <source>%2 is no value of %1. Its values: %3</source>
        <extracomment>%1 setting, %2 what was given, %3 values</extracomment>
        <translation>%2 no es un valor de %1. Sus valores: %3</translation>
    </message>
    <message id="2077">
        <source>Sensors of type %1 do not have %2. Nothing was written.</source>
        <extracomment>%1 type, %2 setting</extracomment>
        <translation>Los sensores del tipo %1 no tienen %2. No se ha escrito nada.</translation>
    </message>
    <message id="2078">
        <source>The measurement direction changes, and the offset with it: name the new offset, too. Nothing was written.</source>
        <translation>El sentido de medición cambia, y con él el offset: nombre también el nuevo offset. No se ha escrito nada.</translation>
    </message>
    <message id="2079">
        <source>Choose with --offset-count=keep-length or --offset-count=multiplied. Nothing was written.</source>
        <translation>Elija con --offset-count=keep-length o --offset-count=multiplied. No se ha escrito nada.</translation>
    </message>
    <message id="2080">
        <source>%1 is named twice.</source>
        <extracomment>%1 setting</extracomment>
        <translation>%1 se nombra dos veces.</translation>
    </message>
    <message id="2081">
        <source>then a pause of %1 ms</source>
        <translation>después una pausa de %1 ms</translation>
    </message>
    <message id="2082">
        <source>The journal has no entry %1.</source>
        <translation>El diario no tiene ninguna entrada %1.</translation>
    </message>
    <message id="2100">
        <source>%1 hexadecimal is %2.</source>
        <translation>%1 en hexadecimal es %2.</translation>
    </message>
    <message id="2101">
        <source>%1 hexadecimal; the firmware revision is %2, as the bounds in the settings are written.</source>
        <translation>%1 en hexadecimal; la revisión del firmware es %2, como están escritos los límites en la configuración.</translation>
    </message>
    <message id="2102">
        <source>%1 = 512 × gradient ÷ resolution in µm.</source>
        <translation>%1 = 512 × gradiente ÷ resolución en µm.</translation>
    </message>
    <message id="2103">
        <source>Gradient and resolution give %1.</source>
        <translation>El gradiente y la resolución dan %1.</translation>
    </message>
    <message id="2104">
        <source>The code of a stroke length of %1 mm.</source>
        <translation>El código de una longitud de medición de %1 mm.</translation>
    </message>
    <message id="2105">
        <source>%1 or %2</source>
        <translation>%1 o %2</translation>
    </message>
    <message id="2106">
        <source>No stroke length has this code.</source>
        <translation>Ninguna longitud de medición tiene este código.</translation>
    </message>
    <message id="2107">
        <source>As Read from the Sensor</source>
        <translation>Tal como se leyó del sensor</translation>
    </message>
    <message id="2108">
        <source>Read a Parameter</source>
        <translation>Leer un parámetro</translation>
    </message>
    <message id="2109">
        <source>Received, as Text</source>
        <translation>Recepción, como texto</translation>
    </message>
    <message id="2110">
        <source>Enter sends; Up and Down show what was sent before.</source>
        <translation>Intro envía; Arriba y Abajo muestran lo enviado antes.</translation>
    </message>
    <message id="2111">
        <source>Not everything that was pasted has a cell in the table. What lies beyond its edge was left out.</source>
        <translation>No todo lo pegado tiene una celda en la tabla. Lo que pasa de su borde se ha omitido.</translation>
    </message>
    <message id="2112">
        <source>Paste</source>
        <translation>Pegar</translation>
    </message>
    <message id="2113">
        <source>The file cannot hold this; it will hold %1.</source>
        <translation>El archivo no puede contener esto; contendrá %1.</translation>
    </message>
    <message id="2114">
        <source>Selected line, in words</source>
        <translation>Línea elegida, en palabras</translation>
    </message>
    <message id="2115">
        <source>Copy with Times</source>
        <translation>Copiar con las horas</translation>
    </message>
    <message id="2116">
        <source>Follow</source>
        <translation>Seguir</translation>
    </message>
    <message id="2117">
        <source>Find</source>
        <translation>Buscar</translation>
    </message>
    <message id="2118">
        <source>Next</source>
        <translation>Siguiente</translation>
    </message>
    <message id="2119">
        <source>Previous</source>
        <translation>Anterior</translation>
    </message>
    <message id="2120">
        <source>%1 of %2</source>
        <translation>%1 de %2</translation>
    </message>
    <message id="2121">
        <source>searching: %1 so far</source>
        <translation>buscando: %1 hasta ahora</translation>
    </message>
    <message id="2122">
        <source>Not found</source>
        <translation>No encontrado</translation>
    </message>
    <message id="2123">
        <source>Read of %1.</source>
        <translation>Lectura de %1.</translation>
    </message>
    <message id="2124">
        <source>Write of %1: %2.</source>
        <translation>Escritura de %1: %2.</translation>
    </message>
    <message id="2125">
        <source>Answer, %1: %2.</source>
        <translation>Respuesta, %1: %2.</translation>
    </message>
    <message id="2126">
        <source>Command %1.</source>
        <translation>Comando %1.</translation>
    </message>
    <message id="2127">
        <source>Position, as the sensor streams it: SSI word %1 hexadecimal.</source>
        <translation>Posición, tal como la emite el sensor: palabra SSI %1 en hexadecimal.</translation>
    </message>
    <message id="2128">
        <source>The supply line (RTS) could not be switched: %1.</source>
        <translation>No se pudo conmutar la línea de alimentación (RTS): %1.</translation>
    </message>
    <message id="2129">
        <source>The port could not be emptied: %1.</source>
        <translation>No se pudo vaciar el puerto: %1.</translation>
    </message>
    <message id="2130">
        <source>Sending failed: %1.</source>
        <translation>Falló el envío: %1.</translation>
    </message>
    <message id="2131">
        <source>Receiving failed: %1.</source>
        <translation>Falló la recepción: %1.</translation>
    </message>
    <message id="2132">
        <source>A frame left the port only in part.</source>
        <translation>Una trama salió del puerto solo en parte.</translation>
    </message>
    <message id="2133">
        <source>The answer above has %1 bytes; 7 to 9 are expected.</source>
        <translation>La respuesta anterior tiene %1 bytes; se esperan de 7 a 9.</translation>
    </message>
    <message id="2134">
        <source>The answer above does not end as an answer does.</source>
        <translation>La respuesta anterior no termina como una respuesta.</translation>
    </message>
    <message id="2135">
        <source>A value of %1 bytes is too long for a frame; nothing was sent.</source>
        <translation>Un valor de %1 bytes es demasiado largo para una trama; no se envió nada.</translation>
    </message>
    <message id="2136">
        <source>The sensor is of type %1, as its firmware revision says.</source>
        <translation>El sensor es de tipo %1, según su revisión de firmware.</translation>
    </message>
    <message id="2137">
        <source>The firmware revision of the sensor lies in none of the configured ranges.</source>
        <translation>La revisión del firmware del sensor no está en ninguno de los intervalos configurados.</translation>
    </message>
    <message id="2138">
        <source>Nothing was received in time.</source>
        <translation>No se recibió nada a tiempo.</translation>
    </message>
    <message id="2139">
        <source>Not a whole answer, as text: %1.</source>
        <translation>Respuesta incompleta, como texto: %1.</translation>
    </message>
    <message id="2140">
        <source>&amp;Open Backup File…</source>
        <translation>A&amp;brir archivo de copia…</translation>
    </message>
    <message id="2141">
        <source>Backup File</source>
        <translation>Archivo de copia de seguridad</translation>
    </message>
    <message id="2142">
        <source>Re&amp;port…</source>
        <translation>&amp;Informe…</translation>
    </message>
    <message id="2143">
        <source>Sensor Report</source>
        <translation>Informe del sensor</translation>
    </message>
    <message id="2144">
        <source>Web pages (*.html);;PDF documents (*.pdf);;All files (*)</source>
        <translation>Páginas web (*.html);;Documentos PDF (*.pdf);;Todos los archivos (*)</translation>
    </message>
    <message id="2145">
        <source>Note</source>
        <translation>Nota</translation>
    </message>
    <message id="2146">
        <source>Date and time</source>
        <translation>Fecha y hora</translation>
    </message>
    <message id="2147">
        <source>Program</source>
        <translation>Programa</translation>
    </message>
    <message id="2148">
        <source>Last verification</source>
        <translation>Última comprobación</translation>
    </message>
    <message id="2149">
        <source>The journal has no write to this sensor.</source>
        <translation>El diario no tiene ninguna entrada de este sensor.</translation>
    </message>
    <message id="2150">
        <source>&amp;Support File…</source>
        <translation>Archivo de &amp;soporte…</translation>
    </message>
    <message id="2151">
        <source>Support File</source>
        <translation>Archivo de soporte</translation>
    </message>
    <message id="2152">
        <source>This is what the file will hold; it stays on this computer until you pass it on. Delete here what you do not want to pass on.</source>
        <translation>Esto es lo que contendrá el archivo; queda en este equipo hasta que usted lo entregue. Borre aquí lo que no quiera entregar.</translation>
    </message>
    <message id="2153">
        <source>Versions</source>
        <translation>Versiones</translation>
    </message>
    <message id="2155">
        <source>Last kept state of a sensor</source>
        <translation>Último estado guardado de un sensor</translation>
    </message>
    <message id="2156">
        <source>The last %1 of %2 lines</source>
        <translation>Las últimas %1 de %2 líneas</translation>
    </message>
    <message id="2157">
        <source>Sensor type</source>
        <translation>Tipo de sensor</translation>
    </message>
    <message id="2160">
        <source>Sensor connected</source>
        <extracomment>State in the line above the page</extracomment>
        <translation>Sensor conectado</translation>
    </message>
    <message id="2161">
        <source>No sensor connected</source>
        <extracomment>State in the line above the page</extracomment>
        <translation>Ningún sensor conectado</translation>
    </message>
    <message id="2162">
        <source>Sensor not identified</source>
        <extracomment>State in the line above the page</extracomment>
        <translation>Sensor no identificado</translation>
    </message>
    <message id="2163">
        <source>Connection lost</source>
        <extracomment>State in the line above the page</extracomment>
        <translation>Conexión perdida</translation>
    </message>
    <message id="2164">
        <source>Type %1</source>
        <extracomment>%1 is the sensor's type, a digit</extracomment>
        <translation>Tipo %1</translation>
    </message>
    <message id="2165">
        <source>Type %1, chosen by hand</source>
        <extracomment>%1 is the sensor's type, a digit</extracomment>
        <translation>Tipo %1, elegido a mano</translation>
    </message>
    <message id="2166">
        <source>Firmware revision %1</source>
        <extracomment>%1 are two hexadecimal digits</extracomment>
        <translation>Revisión de firmware %1</translation>
    </message>
    <message id="2167">
        <source>Safe writes on</source>
        <translation>Escritura segura activada</translation>
    </message>
    <message id="2168">
        <source>Safe writes off</source>
        <translation>Escritura segura desactivada</translation>
    </message>
    <message id="2170">
        <source>Go Back</source>
        <translation>Atrás</translation>
    </message>
    <message id="2171">
        <source>Go Forward</source>
        <translation>Adelante</translation>
    </message>
    <message id="2172">
        <source>%1 has vanished right after it was plugged in. Other programs take some adapters, such as braille display drivers (brltty) or ModemManager: have them leave it alone, then plug it in again.</source>
        <translation>%1 ha desaparecido justo después de enchufarse. Otros programas se apropian de algunos adaptadores, como los controladores de líneas braille (brltty) o ModemManager: haga que lo dejen libre y vuelva a enchufarlo.</translation>
    </message>
    <message id="2200">
        <source>The log keeps its newest lines, up to 256 MB. Older lines that are gone: %1</source>
        <extracomment>Note above the communications log; %1 number of lines</extracomment>
        <translation>El registro conserva sus líneas más recientes, hasta 256 MB. Líneas más antiguas que ya no existen: %1</translation>
    </message>
    <message id="2220">
        <source>Licence:</source>
        <extracomment>Caption in the About dialog</extracomment>
        <translation>Licencia:</translation>
    </message>
    <message id="2221">
        <source>Commit:</source>
        <extracomment>Caption in the About dialog: the revision of the sources</extracomment>
        <translation>Commit:</translation>
    </message>
    <message id="2222">
        <source>Qt version:</source>
        <extracomment>Caption in the About dialog</extracomment>
        <translation>Versión de Qt:</translation>
    </message>
    <message id="2230">
        <source>Reading was cancelled. What is empty was not read.</source>
        <extracomment>the user has cancelled the reading of a page</extracomment>
        <translation>Lectura cancelada. Lo que está vacío no se ha leído.</translation>
    </message>
    <message id="2260">
        <source>The tables of the page for temperature compensation hold values that are in no file. Discard them?</source>
        <translation>Las tablas de la página de compensación de temperatura contienen valores que no están en ningún archivo. ¿Desea descartarlos?</translation>
    </message>
    <message id="2261">
        <source>The file replaces values of the table that are in no file. Discard them?</source>
        <translation>El archivo sustituye valores de la tabla que no están en ningún archivo. ¿Desea descartarlos?</translation>
    </message>
    <message id="2265">
        <source>You have no permission to open %1. Only the administrator of the system can give access to it.</source>
        <extracomment>%1 port</extracomment>
        <translation>No tiene permiso para abrir %1. Solo el administrador del sistema puede dar acceso.</translation>
    </message>
    <message id="2266">
        <source>The port is another one than that of the sensor that was written to.</source>
        <translation>El puerto no es el del sensor en el que se escribió.</translation>
    </message>
    <message id="2267">
        <source>Pelorin ends without its port. If you stay, it goes on without one.</source>
        <translation>Sin su puerto, Pelorin termina. Si permanece, sigue sin puerto.</translation>
    </message>
    <message id="2268">
        <source>Another sensor answers than the one that was connected. Connect it first. Nothing was written.</source>
        <translation>Responde otro sensor que el que estaba conectado. Conéctelo primero. No se escribió nada.</translation>
    </message>
    <message id="2269">
        <source>Saved, and not taken over, since this type of sensor does not have it: %1.</source>
        <extracomment>%1 parameters</extracomment>
        <translation>Guardado y no aplicado, porque este tipo de sensor no lo tiene: %1.</translation>
    </message>
</context>
</TS>

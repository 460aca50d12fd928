<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="it" sourcelanguage="en">
<context>
    <name></name>
    <message id="100">
        <source>Pelorin</source>
        <translation>Pelorin</translation>
    </message>
    <message id="101">
        <source>Port %1 could not be opened (system error %2).</source>
        <extracomment>%1 port, %2 system error code</extracomment>
        <translation>Impossibile aprire la porta %1 (errore di sistema %2).</translation>
    </message>
    <message id="102">
        <source>The line settings of port %1 could not be set (system error %2).</source>
        <extracomment>%1 port, %2 system error code</extracomment>
        <translation>Impossibile impostare i parametri di trasmissione della porta %1 (errore di sistema %2).</translation>
    </message>
    <message id="103">
        <source>The time-outs of port %1 could not be set (system error %2).</source>
        <extracomment>%1 port, %2 system error code</extracomment>
        <translation>Impossibile impostare i tempi di attesa della porta %1 (errore di sistema %2).</translation>
    </message>
    <message id="104">
        <source>The queue sizes of port %1 could not be set (system error %2).</source>
        <extracomment>%1 port, %2 system error code</extracomment>
        <translation>Impossibile impostare la dimensione dei buffer della porta %1 (errore di sistema %2).</translation>
    </message>
    <message id="105">
        <source>The communication could not be started (system error %1).</source>
        <extracomment>%1 system error code</extracomment>
        <translation>Impossibile avviare la comunicazione (errore di sistema %1).</translation>
    </message>
    <message id="106">
        <source>E&amp;xit</source>
        <extracomment>Item on the menu bar</extracomment>
        <translation>&amp;Esci</translation>
    </message>
    <message id="107">
        <source>Select Communications Port</source>
        <extracomment>Menu item and dialog title, so without a mnemonic</extracomment>
        <translation>Seleziona porta di comunicazione</translation>
    </message>
    <message id="108">
        <source>&amp;Connection</source>
        <extracomment>Menu</extracomment>
        <translation>&amp;Connessione</translation>
    </message>
    <message id="109">
        <source>&amp;Connect</source>
        <extracomment>Menu item</extracomment>
        <translation>&amp;Connetti</translation>
    </message>
    <message id="110">
        <source>Sensor Information</source>
        <extracomment>Page</extracomment>
        <translation>Informazioni sensore</translation>
    </message>
    <message id="111">
        <source>Parameter</source>
        <extracomment>Column heading</extracomment>
        <translation>Parametro</translation>
    </message>
    <message id="112">
        <source>Value</source>
        <extracomment>Column heading</extracomment>
        <translation>Valore</translation>
    </message>
    <message id="113">
        <source>Unit</source>
        <extracomment>Column heading</extracomment>
        <translation>Unità</translation>
    </message>
    <message id="114">
        <source>COM%1</source>
        <extracomment>%1 port number</extracomment>
        <translation>COM%1</translation>
    </message>
    <message id="115">
        <source>No port</source>
        <extracomment>Status bar, in place of the port</extracomment>
        <translation>Nessuna porta</translation>
    </message>
    <message id="116">
        <source>Connecting to the sensor…</source>
        <extracomment>Status bar</extracomment>
        <translation>Connessione al sensore…</translation>
    </message>
    <message id="117">
        <source>Connected to the sensor.</source>
        <extracomment>Status bar</extracomment>
        <translation>Connesso al sensore.</translation>
    </message>
    <message id="118">
        <source>Not connected to the sensor.</source>
        <extracomment>Status bar</extracomment>
        <translation>Non connesso al sensore.</translation>
    </message>
    <message id="119">
        <source>Pelorin</source>
        <extracomment>Title of the main window</extracomment>
        <translation>Pelorin</translation>
    </message>
    <message id="120">
        <source>Cancel</source>
        <extracomment>Button</extracomment>
        <translation>Annulla</translation>
    </message>
    <message id="121">
        <source>Reading the sensor's parameters…</source>
        <extracomment>Status bar</extracomment>
        <translation>Lettura dei parametri del sensore…</translation>
    </message>
    <message id="122">
        <source>Data Format</source>
        <extracomment>Group and table row</extracomment>
        <translation>Formato dati</translation>
    </message>
    <message id="123">
        <source>Parameter %1 could not be read from the sensor.</source>
        <extracomment>%1 byte value of the parameter's identifier</extracomment>
        <translation>Impossibile leggere il parametro %1 dal sensore.</translation>
    </message>
    <message id="124">
        <source>%1 bits, Gray code</source>
        <extracomment>%1 number of data bits</extracomment>
        <translation>%1 bit, codice Gray</translation>
    </message>
    <message id="125">
        <source>%1 bits, binary</source>
        <extracomment>%1 number of data bits</extracomment>
        <translation>%1 bit, binario</translation>
    </message>
    <message id="126">
        <source>Ready.</source>
        <extracomment>Status bar, after reading or writing</extracomment>
        <translation>Pronto.</translation>
    </message>
    <message id="127">
        <source>Measurement Mode</source>
        <extracomment>Caption, group and table row</extracomment>
        <translation>Modalità di misura</translation>
    </message>
    <message id="128">
        <source>Reverse</source>
        <extracomment>Direction of measurement</extracomment>
        <translation>Inversa</translation>
    </message>
    <message id="129">
        <source>Forward</source>
        <extracomment>Direction of measurement</extracomment>
        <translation>Diretta</translation>
    </message>
    <message id="130">
        <source>Synchronous</source>
        <extracomment>Measurement mode</extracomment>
        <translation>Sincrona</translation>
    </message>
    <message id="131">
        <source>Position stream</source>
        <extracomment>Measurement mode, while the sensor streams positions</extracomment>
        <translation>Uscita continua di posizione</translation>
    </message>
    <message id="132">
        <source>Asynchronous</source>
        <extracomment>Measurement mode</extracomment>
        <translation>Asincrona</translation>
    </message>
    <message id="133">
        <source>Multiplier</source>
        <extracomment>Table row</extracomment>
        <translation>Moltiplicatore</translation>
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
        <translation>Testo di fabbrica</translation>
    </message>
    <message id="139">
        <source>Firmware Version</source>
        <extracomment>Table row, parameter V</extracomment>
        <translation>Versione firmware</translation>
    </message>
    <message id="140">
        <source>Resolution</source>
        <extracomment>Caption and table row</extracomment>
        <translation>Risoluzione</translation>
    </message>
    <message id="141">
        <source>mm</source>
        <extracomment>Unit</extracomment>
        <translation>mm</translation>
    </message>
    <message id="142">
        <source>Stroke Length</source>
        <extracomment>Caption and table row</extracomment>
        <translation>Corsa di misura</translation>
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
        <translation>Fattore di scala</translation>
    </message>
    <message id="146">
        <source>hex</source>
        <extracomment>Unit of a value shown in hexadecimal digits</extracomment>
        <translation>hex</translation>
    </message>
    <message id="147">
        <source>Factory Text P</source>
        <extracomment>Table row, parameter P</extracomment>
        <translation>Testo di fabbrica P</translation>
    </message>
    <message id="148">
        <source>Cycle Code Z</source>
        <extracomment>Table row, parameter Z</extracomment>
        <translation>Codice ciclo Z</translation>
    </message>
    <message id="149">
        <source>Offset</source>
        <extracomment>Table row, parameter N</extracomment>
        <translation>Offset</translation>
    </message>
    <message id="150">
        <source>Cycle Code M</source>
        <extracomment>Table row, parameter M</extracomment>
        <translation>Codice ciclo M</translation>
    </message>
    <message id="151">
        <source>Factory Value J</source>
        <extracomment>Table row, parameter J</extracomment>
        <translation>Valore di fabbrica J</translation>
    </message>
    <message id="152">
        <source>Not applicable</source>
        <extracomment>In place of a value that this type of sensor does not have</extracomment>
        <translation>Non applicabile</translation>
    </message>
    <message id="153">
        <source>Advanced Measurement Setup</source>
        <extracomment>Group and table row, parameter K</extracomment>
        <translation>Impostazioni di misura avanzate</translation>
    </message>
    <message id="154">
        <source>Factory Value O</source>
        <extracomment>Table row, parameter O</extracomment>
        <translation>Valore di fabbrica O</translation>
    </message>
    <message id="155">
        <source>1 Magnet</source>
        <extracomment>Option and table cell</extracomment>
        <translation>1 magnete</translation>
    </message>
    <message id="156">
        <source>2 Magnets</source>
        <extracomment>Option and table cell</extracomment>
        <translation>2 magneti</translation>
    </message>
    <message id="157">
        <source>Normal Position Output</source>
        <extracomment>Option and table cell</extracomment>
        <translation>Uscita di posizione normale</translation>
    </message>
    <message id="158">
        <source>Differential Position</source>
        <extracomment>Option and table cell</extracomment>
        <translation>Differenza di posizione</translation>
    </message>
    <message id="159">
        <source>Velocity</source>
        <extracomment>Option and table cell</extracomment>
        <translation>Velocità</translation>
    </message>
    <message id="160">
        <source>Unknown number of magnets</source>
        <extracomment>Table cell</extracomment>
        <translation>Numero di magneti sconosciuto</translation>
    </message>
    <message id="161">
        <source>Unknown output</source>
        <extracomment>Table cell</extracomment>
        <translation>Uscita sconosciuta</translation>
    </message>
    <message id="162">
        <source>No Extension</source>
        <extracomment>Option and table cell</extracomment>
        <translation>Nessuna estensione</translation>
    </message>
    <message id="163">
        <source>Parity</source>
        <extracomment>Option and table cell</extracomment>
        <translation>Parità</translation>
    </message>
    <message id="164">
        <source>Temperature</source>
        <extracomment>Option and table cell</extracomment>
        <translation>Temperatura</translation>
    </message>
    <message id="165">
        <source>Unknown extension</source>
        <extracomment>Table cell</extracomment>
        <translation>Estensione sconosciuta</translation>
    </message>
    <message id="166">
        <source>Refresh</source>
        <extracomment>Button</extracomment>
        <translation>Aggiorna</translation>
    </message>
    <message id="167">
        <source>COM%1 could not be opened.

Abort ends the program, Retry tries the same port again, Ignore lets you select another port.</source>
        <extracomment>%1 port number; names the buttons Abort, Retry and Ignore as the toolkit translates them</extracomment>
        <translation>Impossibile aprire COM%1.

«Interrompi» chiude il programma, «Riprova» ritenta la stessa porta, «Ignora» permette di scegliere un'altra porta.</translation>
    </message>
    <message id="168">
        <source>Output Setup</source>
        <extracomment>Page</extracomment>
        <translation>Impostazioni uscita</translation>
    </message>
    <message id="169">
        <source>Data Bits</source>
        <extracomment>Caption</extracomment>
        <translation>Bit di dati</translation>
    </message>
    <message id="170">
        <source>Parameter %1 could not be written to the sensor.</source>
        <extracomment>%1 byte value of the parameter's identifier</extracomment>
        <translation>Impossibile scrivere il parametro %1 nel sensore.</translation>
    </message>
    <message id="171">
        <source>Binary</source>
        <extracomment>Output format</extracomment>
        <translation>Binario</translation>
    </message>
    <message id="172">
        <source>Gray code</source>
        <extracomment>Output format</extracomment>
        <translation>Codice Gray</translation>
    </message>
    <message id="173">
        <source>Format</source>
        <extracomment>Caption</extracomment>
        <translation>Formato</translation>
    </message>
    <message id="174">
        <source>Measurement Direction</source>
        <extracomment>Caption</extracomment>
        <translation>Direzione di misura</translation>
    </message>
    <message id="175">
        <source>mm</source>
        <extracomment>Unit of the resolution</extracomment>
        <translation>mm</translation>
    </message>
    <message id="176">
        <source>Error Skip Count</source>
        <extracomment>Caption and table row</extracomment>
        <translation>Errori ignorati</translation>
    </message>
    <message id="177">
        <source>Number of Magnets</source>
        <extracomment>Group</extracomment>
        <translation>Numero di magneti</translation>
    </message>
    <message id="178">
        <source>Extension</source>
        <extracomment>Group</extracomment>
        <translation>Estensione</translation>
    </message>
    <message id="179">
        <source>Unlock</source>
        <extracomment>Button</extracomment>
        <translation>Sblocca</translation>
    </message>
    <message id="180">
        <source>Apply Changes</source>
        <extracomment>Button</extracomment>
        <translation>Applica modifiche</translation>
    </message>
    <message id="181">
        <source>A value is missing. Please complete it first.</source>
        <extracomment>Message, with the incomplete field focused</extracomment>
        <translation>Manca un valore. Completarlo prima di continuare.</translation>
    </message>
    <message id="182">
        <source>This type of sensor does not offer a resolution finer than 0.010 mm.</source>
        <extracomment>Message</extracomment>
        <translation>Questo tipo di sensore non offre una risoluzione più fine di 0.010 mm.</translation>
    </message>
    <message id="183">
        <source>This type of sensor has no synchronous measurement mode.</source>
        <extracomment>Message</extracomment>
        <translation>Questo tipo di sensore non ha la modalità di misura sincrona.</translation>
    </message>
    <message id="184">
        <source>The measurement direction changes, and the offset with it. Select the sensor package or enter the sensor's dimensions; the new offset is calculated from them.</source>
        <extracomment>Note in a dialog</extracomment>
        <translation>La direzione di misura cambia, e con essa l'offset. Selezionare il modello di sensore o inserirne le dimensioni; da queste si calcola il nuovo offset.</translation>
    </message>
    <message id="185">
        <source>Calculate Offset</source>
        <extracomment>Dialog title</extracomment>
        <translation>Calcola offset</translation>
    </message>
    <message id="186">
        <source>SE Distance</source>
        <extracomment>Caption</extracomment>
        <translation>Distanza SE</translation>
    </message>
    <message id="187">
        <source>Dead Zone</source>
        <extracomment>Caption</extracomment>
        <translation>Zona morta</translation>
    </message>
    <message id="188">
        <source>Communications Log</source>
        <extracomment>Page</extracomment>
        <translation>Registro comunicazioni</translation>
    </message>
    <message id="189">
        <source>Clear</source>
        <extracomment>Button</extracomment>
        <translation>Svuota</translation>
    </message>
    <message id="190">
        <source>Save To Disk</source>
        <extracomment>Button</extracomment>
        <translation>Salva su disco</translation>
    </message>
    <message id="191">
        <source>Text files (*.txt);;All files (*)</source>
        <extracomment>File filter</extracomment>
        <translation>File di testo (*.txt);;Tutti i file (*)</translation>
    </message>
    <message id="192">
        <source>The file %1 could not be opened (system error %2: %3).</source>
        <extracomment>%1 path, %2 system error code, %3 its words</extracomment>
        <translation>Impossibile aprire il file %1 (errore di sistema %2: %3).</translation>
    </message>
    <message id="193">
        <source>&amp;Refresh</source>
        <extracomment>Menu item</extracomment>
        <translation>&amp;Aggiorna</translation>
    </message>
    <message id="194">
        <source>&amp;View</source>
        <extracomment>Menu</extracomment>
        <translation>&amp;Visualizza</translation>
    </message>
    <message id="195">
        <source>&amp;Save Backup…</source>
        <extracomment>Menu item</extracomment>
        <translation>&amp;Salva backup…</translation>
    </message>
    <message id="196">
        <source>&amp;Restore Backup…</source>
        <extracomment>Menu item</extracomment>
        <translation>&amp;Ripristina backup…</translation>
    </message>
    <message id="197">
        <source>Send Command &amp;E</source>
        <extracomment>Menu item</extracomment>
        <translation>Invia comando &amp;E</translation>
    </message>
    <message id="198">
        <source>Send Command &amp;Q</source>
        <extracomment>Menu item</extracomment>
        <translation>Invia comando &amp;Q</translation>
    </message>
    <message id="200">
        <source>&amp;Sensor</source>
        <extracomment>Menu</extracomment>
        <translation>&amp;Sensore</translation>
    </message>
    <message id="201">
        <source>&amp;Help</source>
        <extracomment>Menu item</extracomment>
        <translation>&amp;Guida</translation>
    </message>
    <message id="202">
        <source>&amp;About…</source>
        <extracomment>Menu item</extracomment>
        <translation>&amp;Informazioni…</translation>
    </message>
    <message id="203">
        <source>&amp;Help</source>
        <extracomment>Menu</extracomment>
        <translation>&amp;Guida</translation>
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
        <translation>&amp;Lingua</translation>
    </message>
    <message id="210">
        <source>Saving the sensor's parameters…</source>
        <extracomment>Progress dialog</extracomment>
        <translation>Salvataggio dei parametri del sensore…</translation>
    </message>
    <message id="211">
        <source>Restoring the sensor's parameters…</source>
        <extracomment>Progress dialog</extracomment>
        <translation>Ripristino dei parametri del sensore…</translation>
    </message>
    <message id="212">
        <source>Backup files (*.dat);;All files (*)</source>
        <extracomment>File filter</extracomment>
        <translation>File di backup (*.dat);;Tutti i file (*)</translation>
    </message>
    <message id="213">
        <source>This is not a backup file of Pelorin.</source>
        <extracomment>Message</extracomment>
        <translation>Questo non è un file di backup di Pelorin.</translation>
    </message>
    <message id="214">
        <source>Factory Parameters</source>
        <extracomment>Page</extracomment>
        <translation>Parametri di fabbrica</translation>
    </message>
    <message id="215">
        <source>Sensor Package</source>
        <extracomment>Caption and table row</extracomment>
        <translation>Modello di sensore</translation>
    </message>
    <message id="216">
        <source>Cycle Code M, Suffix</source>
        <extracomment>Table row, last two digits of parameter M</extracomment>
        <translation>Codice ciclo M, suffisso</translation>
    </message>
    <message id="217">
        <source>Writing to the sensor…</source>
        <extracomment>Status bar</extracomment>
        <translation>Scrittura nel sensore…</translation>
    </message>
    <message id="218">
        <source>About Pelorin</source>
        <extracomment>Dialog title</extracomment>
        <translation>Informazioni su Pelorin</translation>
    </message>
    <message id="219">
        <source>0, 2, 4, 8</source>
        <extracomment>In place of a unit: the values that the multiplier may have</extracomment>
        <translation>0, 2, 4, 8</translation>
    </message>
    <message id="228">
        <source>Enter Password</source>
        <extracomment>Dialog title</extracomment>
        <translation>Inserire la password</translation>
    </message>
    <message id="235">
        <source>The password is wrong.</source>
        <extracomment>Message</extracomment>
        <translation>La password è errata.</translation>
    </message>
    <message id="238">
        <source>No help files are configured. The program starts without help.</source>
        <extracomment>Message</extracomment>
        <translation>Nessun file di guida è configurato. Il programma si avvia senza guida.</translation>
    </message>
    <message id="239">
        <source>The help could not be shown (language %1, error %2, detail %3).</source>
        <extracomment>%1 language code, %2 error code, %3 detail</extracomment>
        <translation>Impossibile mostrare la guida (lingua %1, errore %2, dettaglio %3).</translation>
    </message>
    <message id="240">
        <source>Changing the error skip count is protected. Enter the password to unlock it.</source>
        <extracomment>Note in a dialog</extracomment>
        <translation>Il numero di errori ignorati è protetto. Inserire la password per sbloccarlo.</translation>
    </message>
    <message id="241">
        <source>OK</source>
        <extracomment>Button</extracomment>
        <translation>OK</translation>
    </message>
    <message id="242">
        <source>The synchronous measurement mode cannot be combined with the reverse direction.</source>
        <extracomment>Message</extracomment>
        <translation>La modalità di misura sincrona non può essere combinata con la direzione inversa.</translation>
    </message>
    <message id="243">
        <source>This value must be 0, 1 or 2.</source>
        <extracomment>Message</extracomment>
        <translation>Questo valore deve essere 0, 1 o 2.</translation>
    </message>
    <message id="244">
        <source>Switch the sensor's supply on now, then choose OK.</source>
        <extracomment>Message while the program calls the sensor</extracomment>
        <translation>Inserire ora l'alimentazione del sensore, poi scegliere «OK».</translation>
    </message>
    <message id="245">
        <source>Switch the sensor's supply off, then choose OK. Choose Cancel if the sensor is ready for programming already.</source>
        <extracomment>Message with OK and Cancel</extracomment>
        <translation>Togliere l'alimentazione al sensore, poi scegliere «OK». Scegliere «Annulla» se il sensore è già pronto per la programmazione.</translation>
    </message>
    <message id="246">
        <source>QDL3 Display Unit</source>
        <extracomment>Menu item and window title, so without a mnemonic</extracomment>
        <translation>Visualizzatore QDL3</translation>
    </message>
    <message id="247">
        <source>The display unit on %1 (node %2) did not acknowledge its set-up.</source>
        <extracomment>%1 port, %2 node</extracomment>
        <translation>Il visualizzatore su %1 (nodo %2) non ha confermato la configurazione.</translation>
    </message>
    <message id="248">
        <source>Send</source>
        <extracomment>Caption</extracomment>
        <translation>Invio</translation>
    </message>
    <message id="249">
        <source>Receive</source>
        <extracomment>Caption</extracomment>
        <translation>Ricezione</translation>
    </message>
    <message id="250">
        <source>Execute</source>
        <extracomment>Button</extracomment>
        <translation>Esegui</translation>
    </message>
    <message id="251">
        <source>Manual Communications</source>
        <extracomment>Menu item and dialog title, so without a mnemonic</extracomment>
        <translation>Comunicazione manuale</translation>
    </message>
    <message id="252">
        <source>Tables</source>
        <extracomment>Tab</extracomment>
        <translation>Tabelle</translation>
    </message>
    <message id="253">
        <source>Temperature Compensation</source>
        <extracomment>Page</extracomment>
        <translation>Compensazione di temperatura</translation>
    </message>
    <message id="254">
        <source>Row</source>
        <extracomment>Column heading</extracomment>
        <translation>Riga</translation>
    </message>
    <message id="255">
        <source>Point</source>
        <extracomment>Column heading</extracomment>
        <translation>Punto</translation>
    </message>
    <message id="256">
        <source>Value</source>
        <extracomment>Column heading</extracomment>
        <translation>Valore</translation>
    </message>
    <message id="257">
        <source>Lookup tables (*.csv);;All files (*)</source>
        <extracomment>File filter</extracomment>
        <translation>Tabelle di ricerca (*.csv);;Tutti i file (*)</translation>
    </message>
    <message id="258">
        <source>This is not a lookup table for temperature compensation.</source>
        <extracomment>Message</extracomment>
        <translation>Questa non è una tabella di ricerca per la compensazione di temperatura.</translation>
    </message>
    <message id="259">
        <source>Row</source>
        <extracomment>Column heading</extracomment>
        <translation>Riga</translation>
    </message>
    <message id="260">
        <source>Value %1</source>
        <extracomment>Column heading, %1 number</extracomment>
        <translation>Valore %1</translation>
    </message>
    <message id="261">
        <source>Magnet Position</source>
        <extracomment>Page</extracomment>
        <translation>Posizione del magnete</translation>
    </message>
    <message id="262">
        <source>Magnet position in mm</source>
        <extracomment>Caption</extracomment>
        <translation>Posizione del magnete in mm</translation>
    </message>
    <message id="263">
        <source>While this page is shown, the sensor streams its position over the programming line. Its output settings are changed for that and written back when you leave the page. Do not disconnect the sensor before then.</source>
        <extracomment>Note on a page</extracomment>
        <translation>Mentre questa pagina è visualizzata, il sensore trasmette la sua posizione sulla linea di programmazione. A tale scopo le impostazioni di uscita vengono modificate e ripristinate quando si lascia la pagina. Non scollegare il sensore prima.</translation>
    </message>
    <message id="264">
        <source>The parity extension changes the SSI word that the sensor sends; the controller must be set up for it. Use the parity extension?</source>
        <extracomment>Question</extracomment>
        <translation>L'estensione di parità cambia la parola SSI inviata dal sensore; il controllore deve essere configurato di conseguenza. Usare l'estensione di parità?</translation>
    </message>
    <message id="265">
        <source>In the synchronous measurement mode the controller must clock the sensor regularly. Use the synchronous measurement mode?</source>
        <extracomment>Question</extracomment>
        <translation>Nella modalità di misura sincrona il controllore deve inviare il clock al sensore con regolarità. Usare la modalità di misura sincrona?</translation>
    </message>
    <message id="1000">
        <source>simulated</source>
        <extracomment>Stands beside the name of a simulated port</extracomment>
        <translation>simulata</translation>
    </message>
    <message id="1001">
        <source>You have no permission to open %1. Add your user to the group %2, then log in again.</source>
        <extracomment>%1 port, %2 group of users</extracomment>
        <translation>Non si ha il permesso di aprire %1. Aggiungere l'utente al gruppo %2 e accedere di nuovo.</translation>
    </message>
    <message id="1002">
        <source>%1 is in use by another program.</source>
        <extracomment>%1 port</extracomment>
        <translation>%1 è in uso da un altro programma.</translation>
    </message>
    <message id="1003">
        <source>The settings file %1 is damaged in line %2. None of its settings are used.</source>
        <extracomment>%1 path, %2 line number</extracomment>
        <translation>Il file delle impostazioni %1 è danneggiato alla riga %2. Nessuna delle sue impostazioni viene usata.</translation>
    </message>
    <message id="1004">
        <source>The profile %1 is damaged. Default values are used; a copy is kept beside it.</source>
        <extracomment>%1 path</extracomment>
        <translation>Il profilo %1 è danneggiato. Si usano valori predefiniti; una copia viene conservata accanto ad esso.</translation>
    </message>
    <message id="1005">
        <source>The sensor answered, but no firmware revision bounds are configured. Enter your site's bounds in the settings.</source>
        <extracomment>Tool tip</extracomment>
        <translation>Il sensore ha risposto, ma non sono configurati limiti di revisione del firmware. Inserire i limiti del proprio impianto nelle impostazioni.</translation>
    </message>
    <message id="1006">
        <source>Green: connected</source>
        <extracomment>State of the link light</extracomment>
        <translation>Verde: connesso</translation>
    </message>
    <message id="1007">
        <source>Red, blinking: not connected</source>
        <extracomment>State of the link light</extracomment>
        <translation>Rosso lampeggiante: non connesso</translation>
    </message>
    <message id="1008">
        <source>Gray: no exchange yet</source>
        <extracomment>State of the link light</extracomment>
        <translation>Grigio: ancora nessuno scambio</translation>
    </message>
    <message id="1009">
        <source>Pages</source>
        <extracomment>Accessible name of the page list</extracomment>
        <translation>Pagine</translation>
    </message>
    <message id="1010">
        <source>Port:</source>
        <extracomment>Caption of the list of ports</extracomment>
        <translation>Porta:</translation>
    </message>
    <message id="1012">
        <source>Operation abandoned: the connection to the sensor was lost.</source>
        <extracomment>Message</extracomment>
        <translation>Operazione interrotta: la connessione al sensore è andata persa.</translation>
    </message>
    <message id="1013">
        <source>The sensor is not identified. Nothing was written.</source>
        <extracomment>Message</extracomment>
        <translation>Il sensore non è identificato. Non è stato scritto nulla.</translation>
    </message>
    <message id="1014">
        <source>Pelorin Help</source>
        <extracomment>Window title</extracomment>
        <translation>Guida di Pelorin</translation>
    </message>
    <message id="1015">
        <source>Link light</source>
        <extracomment>Accessible name</extracomment>
        <translation>Spia di connessione</translation>
    </message>
    <message id="1016">
        <source>Program icon</source>
        <extracomment>Accessible name</extracomment>
        <translation>Icona del programma</translation>
    </message>
    <message id="1017">
        <source>Version:</source>
        <extracomment>Caption</extracomment>
        <translation>Versione:</translation>
    </message>
    <message id="1018">
        <source>Program:</source>
        <extracomment>Caption</extracomment>
        <translation>Programma:</translation>
    </message>
    <message id="1019">
        <source>No serial port is present. Plug the adapter in.</source>
        <translation>Nessuna porta seriale presente. Collegare l'adattatore.</translation>
    </message>
    <message id="1020">
        <source>Sensor values</source>
        <extracomment>Accessible name of the table of values</extracomment>
        <translation>Valori del sensore</translation>
    </message>
    <message id="1021">
        <source>Enable Compensation</source>
        <extracomment>Check box</extracomment>
        <translation>Attiva compensazione</translation>
    </message>
    <message id="1022">
        <source>Lookup Table Arrays</source>
        <extracomment>Caption</extracomment>
        <translation>Tabella di ricerca</translation>
    </message>
    <message id="1023">
        <source>Compensation Array</source>
        <extracomment>Caption</extracomment>
        <translation>Tabella di compensazione</translation>
    </message>
    <message id="1024">
        <source>Write To Sensor</source>
        <extracomment>Button</extracomment>
        <translation>Scrivi nel sensore</translation>
    </message>
    <message id="1025">
        <source>Write To File</source>
        <extracomment>Button</extracomment>
        <translation>Scrivi su file</translation>
    </message>
    <message id="1026">
        <source>Read From File</source>
        <extracomment>Button</extracomment>
        <translation>Leggi da file</translation>
    </message>
    <message id="1027">
        <source>The file %1 cannot be read: %2. Its settings are not used.</source>
        <extracomment>%1 path, %2 reason</extracomment>
        <translation>Impossibile leggere il file %1: %2. Le sue impostazioni non vengono usate.</translation>
    </message>
    <message id="1028">
        <source>The sensor is being connected, so nothing else was done. Try again when that has ended.</source>
        <translation>Il sensore è in fase di connessione, perciò non è stato fatto altro. Riprovare quando sarà terminata.</translation>
    </message>
    <message id="1029">
        <source>The connection to the sensor was lost. Nothing was sent. The sensor is connected again when this dialog is closed.</source>
        <translation>La connessione al sensore è andata persa. Non è stato inviato nulla. Il sensore verrà riconnesso alla chiusura di questa finestra.</translation>
    </message>
    <message id="1030">
        <source>The sensor answered, but its firmware revision %1 lies in none of the configured ranges. Check your site's bounds in the settings.</source>
        <extracomment>%1 firmware revision, two hexadecimal digits</extracomment>
        <translation>Il sensore ha risposto, ma la sua revisione del firmware %1 non rientra in nessuno degli intervalli configurati. Controllare i limiti del proprio impianto nelle impostazioni.</translation>
    </message>
    <message id="1031">
        <source>%1 could not be closed: its device does not react. Until it does, no program can open this port. Unplug the adapter.</source>
        <extracomment>%1 name of the port</extracomment>
        <translation>Impossibile chiudere %1: il suo dispositivo non reagisce. Finché non lo fa, nessun programma può aprire questa porta. Scollegare l'adattatore.</translation>
    </message>
    <message id="1100">
        <source>The sensor is not identified. Connect it before its position is shown.</source>
        <translation>Il sensore non è identificato. Connetterlo prima di visualizzarne la posizione.</translation>
    </message>
    <message id="1102">
        <source>Switch the sensor's supply off and on again now.</source>
        <translation>Togliere e reinserire ora l'alimentazione del sensore.</translation>
    </message>
    <message id="1103">
        <source>Note</source>
        <translation>Nota</translation>
    </message>
    <message id="1104">
        <source>Live magnet position in millimetres</source>
        <translation>Posizione attuale del magnete in millimetri</translation>
    </message>
    <message id="1105">
        <source>The sensor's data format could not be kept in %1: %2. Nothing was written to the sensor, so its position cannot be shown.</source>
        <extracomment>%1 path, %2 reason</extracomment>
        <translation>Impossibile conservare in %1 il formato dati del sensore: %2. Non è stato scritto nulla nel sensore, quindi la sua posizione non può essere visualizzata.</translation>
    </message>
    <message id="1106">
        <source>The position stream could not be ended, so nothing else was done. Connect the sensor again.</source>
        <translation>Impossibile terminare l'uscita continua di posizione, perciò non è stato fatto altro. Connettere di nuovo il sensore.</translation>
    </message>
    <message id="1107">
        <source>The sensor on %1 with the version answer %2 may still carry the data format for the position stream: its own one, %3, has not been read back from it. That is written back as soon as the sensor is connected there again.</source>
        <extracomment>%1 device, %2 version answer, %3 data format</extracomment>
        <translation>Il sensore su %1 con la risposta di versione %2 potrebbe avere ancora il formato dati dell'uscita continua di posizione: il suo, %3, non è stato riletto. Verrà riscritto non appena il sensore vi sarà di nuovo connesso.</translation>
    </message>
    <message id="1108">
        <source>Try again</source>
        <translation>Riprova</translation>
    </message>
    <message id="1109">
        <source>Forget</source>
        <translation>Dimentica</translation>
    </message>
    <message id="1110">
        <source>Forget the data format %1 of the sensor on %2? It is then not written back any more.</source>
        <extracomment>%1 data format, %2 device</extracomment>
        <translation>Dimenticare il formato dati %1 del sensore su %2? Non verrà quindi più riscritto.</translation>
    </message>
    <message id="1111">
        <source>The data format of the connected sensor could not be read; it may still be the one for the position stream. Connect the sensor again.</source>
        <translation>Impossibile leggere il formato dati del sensore connesso; potrebbe essere ancora quello dell'uscita continua di posizione. Connettere di nuovo il sensore.</translation>
    </message>
    <message id="1112">
        <source>The sensor still carries the data format for the position stream. Nothing was saved or written. Connect the sensor again, so that its own data format is written back.</source>
        <translation>Il sensore ha ancora il formato dati dell'uscita continua di posizione. Non è stato salvato né scritto nulla. Connettere di nuovo il sensore affinché venga riscritto il suo formato dati.</translation>
    </message>
    <message id="1200">
        <source>Password</source>
        <translation>Password</translation>
    </message>
    <message id="1201">
        <source>The values on this page have not all been read from the sensor as it is connected now. Refresh the page before you apply changes.</source>
        <translation>Non tutti i valori di questa pagina sono stati letti dal sensore attualmente connesso. Aggiornare la pagina prima di applicare le modifiche.</translation>
    </message>
    <message id="1204">
        <source>The error skip count must be a number from 0 to 255.</source>
        <translation>Il numero di errori ignorati deve essere compreso tra 0 e 255.</translation>
    </message>
    <message id="1205">
        <source>The sensor cannot hold the scale factor or the offset that these settings give. Choose a coarser resolution or another offset. Nothing was written.</source>
        <translation>Il sensore non ammette il fattore di scala o l'offset risultanti da queste impostazioni. Scegliere una risoluzione meno fine o un altro offset. Non è stato scritto nulla.</translation>
    </message>
    <message id="1206">
        <source>The sensor has no valid resolution, so its offset is not known. Nothing was written.</source>
        <translation>Il sensore non ha una risoluzione valida, quindi il suo offset non è noto. Non è stato scritto nulla.</translation>
    </message>
    <message id="1302">
        <source>This value must not be longer than %1 characters.</source>
        <translation>Questo valore non deve superare %1 caratteri.</translation>
    </message>
    <message id="1303">
        <source>This value must have exactly %1 characters.</source>
        <translation>Questo valore deve avere esattamente %1 caratteri.</translation>
    </message>
    <message id="1304">
        <source>This value must consist of the digits 0 to 9 only.</source>
        <translation>Questo valore deve contenere solo cifre da 0 a 9.</translation>
    </message>
    <message id="1305">
        <source>This value must be 0, 2, 4 or 8.</source>
        <translation>Questo valore deve essere 0, 2, 4 o 8.</translation>
    </message>
    <message id="1306">
        <source>This value must be a hexadecimal number from 0 to %1.</source>
        <translation>Questo valore deve essere un numero esadecimale da 0 a %1.</translation>
    </message>
    <message id="1307">
        <source>This value must be a number from %1 to %2.</source>
        <translation>Questo valore deve essere un numero da %1 a %2.</translation>
    </message>
    <message id="1308">
        <source>This value may only contain unaccented letters, digits, spaces and ASCII punctuation.</source>
        <translation>Questo valore può contenere solo lettere senza accento, cifre, spazi e la punteggiatura dei caratteri ASCII.</translation>
    </message>
    <message id="1310">
        <source>Parameters written before: %1. Read the sensor's parameters and check them before you use the sensor.</source>
        <translation>Parametri scritti in precedenza: %1. Leggere e controllare i parametri del sensore prima di usarlo.</translation>
    </message>
    <message id="1311">
        <source>No parameter had been written before. Read the sensor's parameters and check them before you use the sensor.</source>
        <translation>In precedenza non era stato scritto alcun parametro. Leggere e controllare i parametri del sensore prima di usarlo.</translation>
    </message>
    <message id="1320">
        <source>The file %1 could not be written: %2. A file of this name that was there before is unchanged.</source>
        <translation>Impossibile scrivere il file %1: %2. Un file con questo nome già esistente è rimasto invariato.</translation>
    </message>
    <message id="1321">
        <source>The file %1 could not be read: %2.</source>
        <translation>Impossibile leggere il file %1: %2.</translation>
    </message>
    <message id="1322">
        <source>The backup file does not hold every parameter that the connected sensor needs. Nothing was written.</source>
        <translation>Il file di backup non contiene tutti i parametri necessari al sensore connesso. Non è stato scritto nulla.</translation>
    </message>
    <message id="1323">
        <source>Missing: %1</source>
        <translation>Mancanti: %1</translation>
    </message>
    <message id="1324">
        <source>Not usable: %1</source>
        <translation>Non utilizzabili: %1</translation>
    </message>
    <message id="1325">
        <source>Save Backup</source>
        <translation>Salva backup</translation>
    </message>
    <message id="1326">
        <source>Restore Backup</source>
        <translation>Ripristina backup</translation>
    </message>
    <message id="1328">
        <source>The sensor is not identified. Connect it before you save its parameters.</source>
        <translation>Il sensore non è identificato. Connetterlo prima di salvarne i parametri.</translation>
    </message>
    <message id="1329">
        <source>Progress</source>
        <translation>Avanzamento</translation>
    </message>
    <message id="1330">
        <source>Parameter %1 was read as "%2", which is not a valid value: the answer may have been disturbed. Refresh the page. Nothing was written.</source>
        <translation>Il parametro %1 è stato letto come «%2», che non è un valore valido: la risposta potrebbe essere stata disturbata. Aggiornare la pagina. Non è stato scritto nulla.</translation>
    </message>
    <message id="1331">
        <source>The backup was saved. These texts are unusual for their parameters, but the sensor answered each of them twice:</source>
        <extracomment>The texts follow, a line each</extracomment>
        <translation>Il backup è stato salvato. Questi testi sono insoliti per i loro parametri, ma il sensore ha risposto due volte con ciascuno di essi:</translation>
    </message>
    <message id="1332">
        <source>The file holds texts that are unusual for their parameters. Write them to the sensor all the same?</source>
        <extracomment>The texts follow, a line each</extracomment>
        <translation>Il file contiene testi insoliti per i loro parametri. Scriverli comunque nel sensore?</translation>
    </message>
    <message id="1400">
        <source>Not hexadecimal, but sent all the same: %1</source>
        <translation>Non esadecimale, ma inviato comunque: %1</translation>
    </message>
    <message id="1401">
        <source>field %1 "%2" as %3</source>
        <translation>campo %1 «%2» come %3</translation>
    </message>
    <message id="1402">
        <source>The serial port is not available. Nothing was sent.</source>
        <translation>La porta seriale non è disponibile. Non è stato inviato nulla.</translation>
    </message>
    <message id="1403">
        <source>Cut off: the sensor was still sending after 60 seconds or 1 MiB.</source>
        <translation>Interrotto: il sensore non ha smesso di inviare entro 60 secondi e 1 MiB.</translation>
    </message>
    <message id="1404">
        <source>Fields that are not hexadecimal</source>
        <translation>Campi non esadecimali</translation>
    </message>
    <message id="1405">
        <source>Outcome of the exchange</source>
        <translation>Esito dello scambio</translation>
    </message>
    <message id="1406">
        <source>Copy</source>
        <translation>Copia</translation>
    </message>
    <message id="1407">
        <source>The serial port was lost during the exchange. What was sent or received may be incomplete.</source>
        <translation>La porta seriale è andata persa durante lo scambio. I dati inviati o ricevuti potrebbero essere incompleti.</translation>
    </message>
    <message id="1502">
        <source>The file holds more rows than the table. Rows in the file: %1; read: %2; ignored: %3.</source>
        <translation>Il file contiene più righe della tabella. Righe nel file: %1; lette: %2; ignorate: %3.</translation>
    </message>
    <message id="1503">
        <source>This has no function in this version.</source>
        <translation>Nessuna funzione in questa versione.</translation>
    </message>
    <message id="1510">
        <source>The file has been written, but it does not hold these cells as they were typed. A point is kept in steps of 0.5 from -16384.0 to 16383.5, a value as the integer that it begins with, and anything else as 0.</source>
        <translation>Il file è stato scritto, ma queste celle vi figurano diversamente da come inserite. Un punto è salvato in passi di 0.5 da -16384.0 a 16383.5, un valore come il numero intero con cui inizia, e tutto il resto come 0.</translation>
    </message>
    <message id="1600">
        <source>%1 is the port of the sensor. The display unit needs a port of its own; the value QDL3Comport of the settings names it.</source>
        <translation>%1 è la porta del sensore. Il visualizzatore ha bisogno di una porta propria, indicata dal valore QDL3Comport delle impostazioni.</translation>
    </message>
    <message id="1601">
        <source>The port %1 no longer exists. Reconnect its adapter, then close the window of the display unit and open it again.</source>
        <translation>La porta %1 non esiste più. Ricollegare l'adattatore, quindi chiudere la finestra del visualizzatore e riaprirla.</translation>
    </message>
    <message id="1602">
        <source>%1 is the port of the display unit. Close the window of the display unit before you choose this port for the sensor.</source>
        <translation>%1 è la porta del visualizzatore. Chiudere la finestra del visualizzatore prima di scegliere questa porta per il sensore.</translation>
    </message>
    <message id="1603">
        <source>Current reading of the display unit</source>
        <translation>Lettura attuale del visualizzatore</translation>
    </message>
    <message id="1610">
        <source>The display unit has acknowledged the settings.</source>
        <translation>Il visualizzatore ha confermato le impostazioni.</translation>
    </message>
    <message id="1611">
        <source>The display unit has not acknowledged all settings. Some of them may be in effect: apply them again.</source>
        <translation>Il visualizzatore non ha confermato tutte le impostazioni. Alcune possono essere già attive: applicarle di nuovo.</translation>
    </message>
    <message id="1612">
        <source>The value QDL3NodeID of the settings is %1. The display unit needs a node from 0 to 9.</source>
        <extracomment>%1 value</extracomment>
        <translation>Il valore QDL3NodeID delle impostazioni è %1. Il visualizzatore ha bisogno di un nodo da 0 a 9.</translation>
    </message>
    <message id="1700">
        <source>Reading what the sensor has…</source>
        <translation>Lettura dello stato del sensore…</translation>
    </message>
    <message id="1701">
        <source>Restarting the sensor…</source>
        <translation>Riavvio del sensore…</translation>
    </message>
    <message id="1702">
        <source>Comparing what the sensor has with what was written…</source>
        <translation>Confronto dello stato del sensore con quanto scritto…</translation>
    </message>
    <message id="1703">
        <source>Verified: after a restart the sensor has all that was written.</source>
        <translation>Verificato: dopo un riavvio il sensore ha tutto ciò che è stato scritto.</translation>
    </message>
    <message id="1704">
        <source>Differs: the sensor does not have all that was written.</source>
        <translation>Differenza: il sensore non ha tutto ciò che è stato scritto.</translation>
    </message>
    <message id="1705">
        <source>Not checked: it is not known what the sensor has.</source>
        <translation>Non controllato: non si sa che cosa abbia il sensore.</translation>
    </message>
    <message id="1706">
        <source>Nothing was written.</source>
        <translation>Non è stato scritto nulla.</translation>
    </message>
    <message id="1707">
        <source>Differs: nothing was changed, the sensor has all that it had before.</source>
        <translation>Differenza: non è cambiato nulla, il sensore ha tutto ciò che aveva prima.</translation>
    </message>
    <message id="1708">
        <source>%1: written %2; the sensor has %3</source>
        <extracomment>%1 parameter, %2 and %3 values</extracomment>
        <translation>%1: scritto %2; il sensore ha %3</translation>
    </message>
    <message id="1709">
        <source>No usable answer: %1</source>
        <extracomment>%1 parameters</extracomment>
        <translation>Nessuna risposta utilizzabile: %1</translation>
    </message>
    <message id="1710">
        <source>The sensor answers what was written, but it was not restarted and may not have stored it.</source>
        <translation>Il sensore risponde quanto scritto, ma non è stato riavviato e forse non l'ha memorizzato.</translation>
    </message>
    <message id="1711">
        <source>At least a part of what was written could not be read back.</source>
        <translation>Almeno una parte di ciò che è stato scritto non si è potuta rileggere.</translation>
    </message>
    <message id="1712">
        <source>Another sensor has answered than the one that was written to.</source>
        <translation>Ha risposto un altro sensore, non quello in cui si è scritto.</translation>
    </message>
    <message id="1713">
        <source>The program was closed before the sensor could be read.</source>
        <translation>Il programma è stato chiuso prima di poter leggere il sensore.</translation>
    </message>
    <message id="1714">
        <source>Safe writes are switched off.</source>
        <translation>La scrittura sicura è disattivata.</translation>
    </message>
    <message id="1715">
        <source>It is compared when this sensor is connected again.</source>
        <translation>Il confronto avverrà quando questo sensore sarà ricollegato.</translation>
    </message>
    <message id="1716">
        <source>The offset has come back as it was before it was multiplied: the sensor may divide it.</source>
        <translation>L'offset è tornato com'era prima della moltiplicazione: forse il sensore lo divide.</translation>
    </message>
    <message id="1717">
        <source>The sensor no longer has what is shown: %1. Click Refresh, then enter your changes again.</source>
        <extracomment>%1 parameters</extracomment>
        <translation>Il sensore non ha più ciò che è mostrato: %1. Fare clic su Aggiorna e inserire di nuovo le modifiche.</translation>
    </message>
    <message id="1718">
        <source>What the sensor has now could not be kept:
%1
Without that it cannot be put back. Write all the same?</source>
        <extracomment>%1 what failed</extracomment>
        <translation>Non è stato possibile conservare ciò che il sensore ha ora:
%1
Senza di ciò non può essere ripristinato. Scrivere comunque?</translation>
    </message>
    <message id="1719">
        <source>These parameters of the sensor could not be read, so that they cannot be put back: %1. Write all the same?</source>
        <extracomment>%1 parameters</extracomment>
        <translation>Questi parametri del sensore non sono stati letti e quindi non potranno essere ripristinati: %1. Scrivere comunque?</translation>
    </message>
    <message id="1720">
        <source>Write All the Same</source>
        <translation>Scrivi comunque</translation>
    </message>
    <message id="1721">
        <source>Do Not Write</source>
        <translation>Non scrivere</translation>
    </message>
    <message id="1722">
        <source>Write Again</source>
        <translation>Scrivi di nuovo</translation>
    </message>
    <message id="1723">
        <source>Put Back…</source>
        <translation>Ripristina…</translation>
    </message>
    <message id="1724">
        <source>%1 counts</source>
        <extracomment>%1 number</extracomment>
        <translation>%1 passi</translation>
    </message>
    <message id="1725">
        <source>Notice</source>
        <translation>Avviso</translation>
    </message>
    <message id="1726">
        <source>Another sensor is connected than the one that was written to.</source>
        <translation>Il sensore collegato non è quello in cui si è scritto.</translation>
    </message>
    <message id="1730">
        <source>&amp;Compare with Backup…</source>
        <extracomment>Menu item</extracomment>
        <translation>&amp;Confronta con backup…</translation>
    </message>
    <message id="1731">
        <source>Compare with Backup</source>
        <translation>Confronta con backup</translation>
    </message>
    <message id="1732">
        <source>The sensor no longer has what the review showed: %1. Read it again.</source>
        <extracomment>%1 parameters</extracomment>
        <translation>Il sensore non ha più quanto mostrato dalla verifica: %1. Rileggerlo.</translation>
    </message>
    <message id="1733">
        <source>Review Before Writing</source>
        <translation>Verifica prima della scrittura</translation>
    </message>
    <message id="1734">
        <source>Put Back</source>
        <extracomment>Title</extracomment>
        <translation>Ripristina uno stato precedente</translation>
    </message>
    <message id="1735">
        <source>Sensor</source>
        <extracomment>Column heading, and name of the line above the page</extracomment>
        <translation>Sensore</translation>
    </message>
    <message id="1736">
        <source>File</source>
        <extracomment>Column heading</extracomment>
        <translation>File</translation>
    </message>
    <message id="1737">
        <source>Earlier</source>
        <extracomment>Column heading: the value that the sensor had</extracomment>
        <translation>Prima</translation>
    </message>
    <message id="1738">
        <source>%1, in words</source>
        <extracomment>Column heading; %1 whose value</extracomment>
        <translation>%1, in parole</translation>
    </message>
    <message id="1739">
        <source>Comparison</source>
        <extracomment>Window title and column heading</extracomment>
        <translation>Confronto</translation>
    </message>
    <message id="1740">
        <source>differs</source>
        <extracomment>Of two values</extracomment>
        <translation>diverso</translation>
    </message>
    <message id="1741">
        <source>equal</source>
        <extracomment>Of two values</extracomment>
        <translation>uguale</translation>
    </message>
    <message id="1742">
        <source>Name</source>
        <extracomment>Column heading</extracomment>
        <translation>Nome</translation>
    </message>
    <message id="1743">
        <source>To Be Written</source>
        <extracomment>Column heading</extracomment>
        <translation>Da scrivere</translation>
    </message>
    <message id="1744">
        <source>stays as it is</source>
        <translation>resta com'è</translation>
    </message>
    <message id="1745">
        <source>with this sensor's own multiplier</source>
        <translation>con il moltiplicatore proprio di questo sensore</translation>
    </message>
    <message id="1746">
        <source>The saved data format asks for the position stream. That is never written.</source>
        <translation>Il formato dati salvato richiede l'uscita continua di posizione. Un tale formato non viene mai scritto.</translation>
    </message>
    <message id="1747">
        <source>computed from this sensor's own gradient</source>
        <translation>calcolato dal gradiente proprio di questo sensore</translation>
    </message>
    <message id="1748">
        <source>this sensor's own length; the saved offset belongs to another stroke length or multiplier</source>
        <translation>lunghezza propria di questo sensore; l'offset salvato appartiene a un'altra corsa di misura o a un altro moltiplicatore</translation>
    </message>
    <message id="1749">
        <source>The calibration is the saved one: it looks like the same sensor. Suggested: all parameters.</source>
        <translation>La calibrazione è quella salvata: sembra lo stesso sensore. Proposta: tutti i parametri.</translation>
    </message>
    <message id="1750">
        <source>The calibration is not the saved one (%1): this may be another sensor.</source>
        <extracomment>%1 parameters</extracomment>
        <translation>La calibrazione non è quella salvata (%1): può essere un altro sensore.</translation>
    </message>
    <message id="1751">
        <source>All parameters: the sensor becomes what was saved, its calibration included</source>
        <translation>Tutti i parametri: il sensore diventa ciò che è stato salvato, calibrazione compresa</translation>
    </message>
    <message id="1752">
        <source>Output settings only, for a replaced sensor: this sensor's calibration stays</source>
        <translation>Solo le impostazioni uscita, per un sensore sostituito: la calibrazione di questo sensore resta</translation>
    </message>
    <message id="1753">
        <source>Write</source>
        <extracomment>Button</extracomment>
        <translation>Scrivi</translation>
    </message>
    <message id="1754">
        <source>Comparisons (*.csv);;All files (*)</source>
        <extracomment>File filter</extracomment>
        <translation>Confronti (*.csv);;Tutti i file (*)</translation>
    </message>
    <message id="1755">
        <source>A backup does not hold: %1</source>
        <extracomment>%1 parameters</extracomment>
        <translation>Un backup non contiene: %1</translation>
    </message>
    <message id="1756">
        <source>Not as it was then: %1. This may be another sensor than the one whose state was kept.</source>
        <extracomment>%1 parameters</extracomment>
        <translation>Non come allora: %1. Può essere un sensore diverso da quello il cui stato è stato conservato.</translation>
    </message>
    <message id="1757">
        <source>The measurement direction differs, and the saved offset cannot be taken over: it is to be calculated on the page Output Setup.</source>
        <translation>La direzione di misura è diversa e l'offset salvato non può essere ripreso: va calcolato nella pagina Impostazioni uscita.</translation>
    </message>
    <message id="1758">
        <source>Nothing differs: the sensor already has all that would be written. Nothing was written.</source>
        <translation>Nessuna differenza: il sensore ha già tutto ciò che verrebbe scritto. Non è stato scritto nulla.</translation>
    </message>
    <message id="1759">
        <source>This state was kept of a sensor of another type. Nothing was written.</source>
        <translation>Questo stato è di un sensore di un altro tipo. Non è stato scritto nulla.</translation>
    </message>
    <message id="1760">
        <source>E&amp;arlier States…</source>
        <translation>Stati &amp;precedenti…</translation>
    </message>
    <message id="1761">
        <source>Earlier States</source>
        <translation>Stati precedenti</translation>
    </message>
    <message id="1762">
        <source>Only of the connected sensor</source>
        <translation>Solo del sensore connesso</translation>
    </message>
    <message id="1763">
        <source>Time</source>
        <translation>Ora</translation>
    </message>
    <message id="1764">
        <source>Port and Device</source>
        <translation>Porta e dispositivo</translation>
    </message>
    <message id="1765">
        <source>Revision</source>
        <translation>Revisione</translation>
    </message>
    <message id="1766">
        <source>Written By</source>
        <translation>Scritto da</translation>
    </message>
    <message id="1767">
        <source>Written</source>
        <translation>Scritto</translation>
    </message>
    <message id="1768">
        <source>Outcome</source>
        <translation>Esito</translation>
    </message>
    <message id="1769">
        <source>Before</source>
        <translation>Prima</translation>
    </message>
    <message id="1770">
        <source>%1 (raw)</source>
        <extracomment>%1: Before, or Written</extracomment>
        <translation>%1 (grezzo)</translation>
    </message>
    <message id="1771">
        <source>Unfinished: it is not known how much of it was written.</source>
        <translation>Non terminato: non si sa quanto ne sia stato scritto.</translation>
    </message>
    <message id="1772">
        <source>Files in %1 that could not be read: %2</source>
        <extracomment>%1: folder, %2: how many</extracomment>
        <translation>File in %1 che non è stato possibile leggere: %2</translation>
    </message>
    <message id="1773">
        <source>Delete…</source>
        <translation>Elimina…</translation>
    </message>
    <message id="1774">
        <source>Delete the state of %1? It can then not be put back any more.</source>
        <extracomment>%1: time</extracomment>
        <translation>Eliminare lo stato del %1? Non potrà quindi più essere ripristinato.</translation>
    </message>
    <message id="1775">
        <source>Close</source>
        <translation>Chiudi</translation>
    </message>
    <message id="1776">
        <source>A write to a sensor (%1, %2) on %3 was not finished. If it was this sensor, it has all of it, a part of it or nothing.</source>
        <extracomment>%1: device, %2: version answer, %3: time; which sensor it was is known by these alone</extracomment>
        <translation>Una scrittura in un sensore (%1, %2) del %3 non è stata terminata. Se era questo sensore, ne ha tutto, una parte o nulla.</translation>
    </message>
    <message id="1777">
        <source>Show…</source>
        <translation>Mostra…</translation>
    </message>
    <message id="1778">
        <source>Earlier state put back</source>
        <translation>Stato precedente ripristinato</translation>
    </message>
    <message id="1779">
        <source>Command line</source>
        <translation>Riga di comando</translation>
    </message>
    <message id="1780">
        <source>Changes not applied: %1</source>
        <extracomment>%1 number, from 1 on</extracomment>
        <translation>Modifiche non applicate: %1</translation>
    </message>
    <message id="1781">
        <source>Changes on this page that have not been applied: %1. Discard them?</source>
        <extracomment>%1 number, from 1 on</extracomment>
        <translation>Modifiche di questa pagina non ancora applicate: %1. Eliminarle?</translation>
    </message>
    <message id="1782">
        <source>Stay</source>
        <translation>Rimani</translation>
    </message>
    <message id="1783">
        <source>Discard</source>
        <translation>Elimina</translation>
    </message>
    <message id="1784">
        <source>Read: %1</source>
        <extracomment>%1 value</extracomment>
        <translation>Letto: %1</translation>
    </message>
    <message id="1785">
        <source>Nothing was read that can be shown here.</source>
        <translation>Non è stato letto nulla che possa essere mostrato qui.</translation>
    </message>
    <message id="1786">
        <source>Nothing was changed. Write the values all the same?</source>
        <translation>Non è stato modificato nulla. Scrivere comunque i valori?</translation>
    </message>
    <message id="1800">
        <source>The data format has the multiplier %1, and the offset was not entered anew. What shall be written?</source>
        <extracomment>%1 multiplier</extracomment>
        <translation>Il formato dati ha il moltiplicatore %1 e l'offset non è stato reinserito. Che cosa deve essere scritto?</translation>
    </message>
    <message id="1801">
        <source>Offset so far: %1</source>
        <extracomment>%1: counts and length</extracomment>
        <translation>Offset finora: %1</translation>
    </message>
    <message id="1802">
        <source>Keep the length: %1</source>
        <extracomment>%1 counts and length</extracomment>
        <translation>Mantenere la lunghezza: %1</translation>
    </message>
    <message id="1803">
        <source>Write it multiplied: %1</source>
        <extracomment>%1 counts and length</extracomment>
        <translation>Scrivere moltiplicato: %1</translation>
    </message>
    <message id="1804">
        <source>Keep the Length</source>
        <translation>Mantieni la lunghezza</translation>
    </message>
    <message id="1805">
        <source>Write It Multiplied</source>
        <translation>Scrivi moltiplicato</translation>
    </message>
    <message id="1815">
        <source>Reading the data format…</source>
        <translation>Lettura del formato dati…</translation>
    </message>
    <message id="1816">
        <source>Writing the data format for the position stream…</source>
        <translation>Scrittura del formato dati per l'uscita continua di posizione…</translation>
    </message>
    <message id="1817">
        <source>Waiting for the sensor to store the data format…</source>
        <translation>Il sensore memorizza il formato dati…</translation>
    </message>
    <message id="1818">
        <source>Restarting the sensor…</source>
        <translation>Riavvio del sensore…</translation>
    </message>
    <message id="1819">
        <source>Waiting for the position stream…</source>
        <translation>In attesa dell'uscita continua di posizione…</translation>
    </message>
    <message id="1820">
        <source>Ending the position stream and connecting the sensor…</source>
        <translation>Arresto dell'uscita continua di posizione e connessione del sensore…</translation>
    </message>
    <message id="1821">
        <source>Writing the sensor's own data format back…</source>
        <translation>Riscrittura del formato dati proprio del sensore…</translation>
    </message>
    <message id="1830">
        <source>Time Shown</source>
        <extracomment>Caption of a list of durations</extracomment>
        <translation>Tempo mostrato</translation>
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
        <translation>Tutta la registrazione</translation>
    </message>
    <message id="1834">
        <source>Hold Range</source>
        <extracomment>Check box: the range of the position axis stays as it is</extracomment>
        <translation>Blocca intervallo</translation>
    </message>
    <message id="1835">
        <source>Pause</source>
        <extracomment>Button that stays pressed</extracomment>
        <translation>Pausa</translation>
    </message>
    <message id="1836">
        <source>Zero Here</source>
        <extracomment>Button that stays pressed: positions are shown relative to this one</extracomment>
        <translation>Zero qui</translation>
    </message>
    <message id="1837">
        <source>Record…</source>
        <extracomment>Button</extracomment>
        <translation>Registra…</translation>
    </message>
    <message id="1838">
        <source>Stop Recording</source>
        <extracomment>Button</extracomment>
        <translation>Ferma registrazione</translation>
    </message>
    <message id="1839">
        <source>Open Recording…</source>
        <extracomment>Button</extracomment>
        <translation>Apri registrazione…</translation>
    </message>
    <message id="1840">
        <source>Minimum</source>
        <extracomment>Figure</extracomment>
        <translation>Minimo</translation>
    </message>
    <message id="1841">
        <source>Maximum</source>
        <extracomment>Figure</extracomment>
        <translation>Massimo</translation>
    </message>
    <message id="1842">
        <source>Span</source>
        <extracomment>Figure: maximum less minimum</extracomment>
        <translation>Escursione</translation>
    </message>
    <message id="1843">
        <source>Mean</source>
        <extracomment>Figure</extracomment>
        <translation>Media</translation>
    </message>
    <message id="1844">
        <source>Standard Deviation</source>
        <extracomment>Figure</extracomment>
        <translation>Deviazione standard</translation>
    </message>
    <message id="1845">
        <source>Positions per Second</source>
        <extracomment>Figure</extracomment>
        <translation>Posizioni al secondo</translation>
    </message>
    <message id="1846">
        <source>Malformed Frames</source>
        <extracomment>Figure: what came and was no position</extracomment>
        <translation>Trame errate</translation>
    </message>
    <message id="1847">
        <source>Time at the Cursor</source>
        <extracomment>Figure</extracomment>
        <translation>Tempo al cursore</translation>
    </message>
    <message id="1848">
        <source>Position at the Cursor</source>
        <extracomment>Figure</extracomment>
        <translation>Posizione al cursore</translation>
    </message>
    <message id="1849">
        <source>Trace of the position</source>
        <extracomment>For screen readers</extracomment>
        <translation>Tracciato della posizione</translation>
    </message>
    <message id="1850">
        <source>No positions</source>
        <extracomment>In place of the trace</extracomment>
        <translation>Nessuna posizione</translation>
    </message>
    <message id="1851">
        <source>Relative to %1 mm</source>
        <extracomment>%1 position</extracomment>
        <translation>Relativo a %1 mm</translation>
    </message>
    <message id="1852">
        <source>The recording %1 has ended: %2. What was recorded before is in the file.</source>
        <extracomment>%1 path, %2 the system's reason</extracomment>
        <translation>La registrazione %1 è terminata: %2. Quanto registrato prima è nel file.</translation>
    </message>
    <message id="1853">
        <source>The file %1 is no recording of positions that this version can read: line 1 is not the first line of one.</source>
        <extracomment>%1 path</extracomment>
        <translation>Il file %1 non è una registrazione di posizioni che questa versione può leggere: la riga 1 non è la prima di una registrazione.</translation>
    </message>
    <message id="1854">
        <source>The recording %1 is damaged at line %2. Lines that could not be read: %3. All others are shown.</source>
        <extracomment>%1 path, %2 number of the first such line, %3 count</extracomment>
        <translation>La registrazione %1 è danneggiata alla riga %2. Righe non leggibili: %3. Tutte le altre sono mostrate.</translation>
    </message>
    <message id="1855">
        <source>Recording %1</source>
        <extracomment>Title of a window, %1 file name</extracomment>
        <translation>Registrazione %1</translation>
    </message>
    <message id="1856">
        <source>Sensor version %1, type %2, port %3, resolution %4 mm, begun %5 (UTC)</source>
        <extracomment>What a recording tells of itself</extracomment>
        <translation>Versione del sensore %1, tipo %2, porta %3, risoluzione %4 mm, inizio %5 (UTC)</translation>
    </message>
    <message id="1857">
        <source>All Decimals</source>
        <extracomment>Check box: the position is shown with the decimals of the resolution</extracomment>
        <translation>Tutti i decimali</translation>
    </message>
    <message id="1858">
        <source>Recordings (*.csv);;All files (*)</source>
        <extracomment>File filter</extracomment>
        <translation>Registrazioni (*.csv);;Tutti i file (*)</translation>
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
        <translation>Vuoto più lungo</translation>
    </message>
    <message id="1862">
        <source>Recorded</source>
        <extracomment>Figure beside a trace: how many seconds have been recorded</extracomment>
        <translation>Registrato</translation>
    </message>
    <message id="1870">
        <source>Output settings only is not possible: the page Output Setup does not offer what the file has: %1</source>
        <extracomment>%1: parameters</extracomment>
        <translation>Solo le impostazioni uscita non è possibile: la pagina Impostazioni uscita non offre ciò che ha il file: %1</translation>
    </message>
    <message id="1900">
        <source>&amp;Settings…</source>
        <translation>&amp;Impostazioni…</translation>
    </message>
    <message id="1901">
        <source>Settings</source>
        <translation>Impostazioni</translation>
    </message>
    <message id="1902">
        <source>Sensor Types</source>
        <translation>Tipi di sensore</translation>
    </message>
    <message id="1903">
        <source>General</source>
        <translation>Generale</translation>
    </message>
    <message id="1904">
        <source>Ports</source>
        <translation>Porte</translation>
    </message>
    <message id="1905">
        <source>Sensor Packages</source>
        <translation>Modelli di sensore</translation>
    </message>
    <message id="1906">
        <source>Display Unit</source>
        <translation>Visualizzatore</translation>
    </message>
    <message id="1908">
        <source>Lowest Revision (hexadecimal)</source>
        <translation>Revisione più bassa (esadecimale)</translation>
    </message>
    <message id="1909">
        <source>Highest Revision (hexadecimal)</source>
        <translation>Revisione più alta (esadecimale)</translation>
    </message>
    <message id="1910">
        <source>The connected sensor has the revision %1 (version answer %2).</source>
        <translation>Il sensore connesso ha la revisione %1 (risposta di versione %2).</translation>
    </message>
    <message id="1911">
        <source>No sensor has answered.</source>
        <translation>Nessun sensore ha risposto.</translation>
    </message>
    <message id="1912">
        <source>Types %1 and %2 both have the revisions %3 to %4: a sensor with one of them counts as type %1.</source>
        <translation>I tipi %1 e %2 hanno entrambi le revisioni da %3 a %4: un sensore con una di esse vale come tipo %1.</translation>
    </message>
    <message id="1913">
        <source>The sensor's supply is switched by hand</source>
        <translation>L'alimentazione del sensore si commuta a mano</translation>
    </message>
    <message id="1914">
        <source>Safe writes: keep what the sensor had, restart it and compare what was written</source>
        <translation>Scrittura sicura: conservare lo stato precedente, riavviare il sensore e confrontare ciò che è stato scritto</translation>
    </message>
    <message id="1915">
        <source>Show the page for temperature compensation</source>
        <translation>Mostra la pagina della compensazione di temperatura</translation>
    </message>
    <message id="1916">
        <source>Offer the display unit in the View menu</source>
        <translation>Offri il visualizzatore nel menu Visualizza</translation>
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
        <translation>Descrizione</translation>
    </message>
    <message id="1920">
        <source>COM Number</source>
        <translation>Numero COM</translation>
    </message>
    <message id="1921">
        <source>not present</source>
        <translation>non presente</translation>
    </message>
    <message id="1922">
        <source>Add</source>
        <translation>Aggiungi</translation>
    </message>
    <message id="1923">
        <source>Remove</source>
        <translation>Rimuovi</translation>
    </message>
    <message id="1924">
        <source>Import…</source>
        <translation>Importa…</translation>
    </message>
    <message id="1925">
        <source>Use the Site's Settings Again…</source>
        <translation>Usa di nuovo le impostazioni dell'impianto…</translation>
    </message>
    <message id="1926">
        <source>These settings are those of the file %1.</source>
        <translation>Queste impostazioni sono quelle del file %1.</translation>
    </message>
    <message id="1927">
        <source>These settings are those of the file %1. A change makes a copy of them, %2. From then on %1 is no longer read.</source>
        <translation>Queste impostazioni sono quelle del file %1. Una modifica ne crea una copia, %2. Da quel momento %1 non viene più letto.</translation>
    </message>
    <message id="1928">
        <source>These settings are shown only: the file %1 cannot be written: %2.</source>
        <translation>Queste impostazioni vengono solo mostrate: impossibile scrivere il file %1: %2.</translation>
    </message>
    <message id="1929">
        <source>Settings files (*.reg);;All files (*)</source>
        <translation>File di impostazioni (*.reg);;Tutti i file (*)</translation>
    </message>
    <message id="1930">
        <source>Type %1: the lowest revision is above the highest one.</source>
        <translation>Tipo %1: la revisione più bassa è superiore alla più alta.</translation>
    </message>
    <message id="1931">
        <source>%1 is the number of two devices, %2 and %3. Give one of them another number.</source>
        <translation>%1 è il numero di due dispositivi, %2 e %3. Assegnare a uno di essi un altro numero.</translation>
    </message>
    <message id="1932">
        <source>“%1” is no COM number for %2. Enter a number from 1 on, or nothing.</source>
        <translation>«%1» non è un numero COM per %2. Immettere un numero da 1 in su, o nulla.</translation>
    </message>
    <message id="1933">
        <source>The sensor's port is %1: the display unit needs another one.</source>
        <translation>La porta del sensore è %1: il visualizzatore ne richiede un'altra.</translation>
    </message>
    <message id="1934">
        <source>Package %1: “%2” is no distance in millimetres.</source>
        <translation>Modello %1: «%2» non è una distanza in millimetri.</translation>
    </message>
    <message id="1935">
        <source>The package in row %1 needs a name.</source>
        <translation>Il modello della riga %1 richiede un nome.</translation>
    </message>
    <message id="1936">
        <source>The file %1 has changed since it was read. It can be overwritten with what is entered here, or read again, which gives up what is entered.</source>
        <translation>Il file %1 è cambiato da quando è stato letto. Può essere sovrascritto con quanto immesso qui, oppure riletto, perdendo quanto immesso.</translation>
    </message>
    <message id="1937">
        <source>Overwrite</source>
        <translation>Sovrascrivi</translation>
    </message>
    <message id="1938">
        <source>Read Again</source>
        <translation>Rileggi</translation>
    </message>
    <message id="1939">
        <source>The tables of the page for temperature compensation hold values, which are lost when the page is no longer shown. Go on?</source>
        <translation>Le tabelle della pagina della compensazione di temperatura contengono valori che vanno persi se la pagina non viene più mostrata. Continuare?</translation>
    </message>
    <message id="1940">
        <source>Your settings file is renamed to %1, and what is entered here is given up. The site's settings are in force again then. Go on?</source>
        <translation>Il file delle impostazioni viene rinominato in %1 e quanto immesso qui viene scartato. Valgono allora di nuovo le impostazioni dell'impianto. Continuare?</translation>
    </message>
    <message id="1941">
        <source>COM%1 has become another device, so the port was closed. Choose where to connect.</source>
        <translation>COM%1 è ora un altro dispositivo, perciò la porta è stata chiusa. Scegliere dove connettersi.</translation>
    </message>
    <message id="1942">
        <source>The sensor is in use: nothing was changed. Try again when that has ended.</source>
        <translation>Il sensore è in uso: non è stato modificato nulla. Riprovare quando sarà terminato.</translation>
    </message>
    <message id="1943">
        <source>The file %1 holds no sensor packages.</source>
        <translation>Il file %1 non contiene modelli di sensore.</translation>
    </message>
    <message id="1944">
        <source>Import Sensor Packages</source>
        <translation>Importa modelli di sensore</translation>
    </message>
    <message id="1960">
        <source>new number</source>
        <extracomment>In the list of ports, in the place of COM7: the device gets a number when it is chosen</extracomment>
        <translation>numero nuovo</translation>
    </message>
    <message id="1961">
        <source>No serial adapter is plugged in. As soon as one is, it appears in the list.</source>
        <translation>Nessun adattatore seriale è collegato. Appena lo è, compare nell'elenco.</translation>
    </message>
    <message id="1962">
        <source>%1 is not there. Plug the adapter in, or choose another port.</source>
        <translation>%1 non è presente. Collegare l'adattatore o scegliere un'altra porta.</translation>
    </message>
    <message id="1963">
        <source>Without a Port</source>
        <extracomment>Button</extracomment>
        <translation>Senza porta</translation>
    </message>
    <message id="1964">
        <source>Demonstration</source>
        <extracomment>Button</extracomment>
        <translation>Dimostrazione</translation>
    </message>
    <message id="1965">
        <source>No port is open: there is no sensor to work with. Everything that needs none can be used.</source>
        <extracomment>Above the page</extracomment>
        <translation>Nessuna porta è aperta: non c'è un sensore con cui lavorare. Tutto ciò che non ne richiede uno è utilizzabile.</translation>
    </message>
    <message id="1966">
        <source>Not identified: the sensor answered with firmware revision %1 (decimal %2). Ranges set: %3.</source>
        <extracomment>%3 is a list of 1967 and 1968</extracomment>
        <translation>Non identificato: il sensore ha risposto con la revisione firmware %1 (decimale %2). Intervalli impostati: %3.</translation>
    </message>
    <message id="1967">
        <source>type %1: %2 to %3</source>
        <translation>tipo %1: da %2 a %3</translation>
    </message>
    <message id="1968">
        <source>type %1: none</source>
        <translation>tipo %1: nessuno</translation>
    </message>
    <message id="1969">
        <source>Use as Type</source>
        <extracomment>Button that opens a menu</extracomment>
        <translation>Usare come tipo</translation>
    </message>
    <message id="1971">
        <source>Always type %1: from now on %2 to %3, so far %4 to %5</source>
        <extracomment>Menu item: widens the range of revisions in the settings</extracomment>
        <translation>Sempre tipo %1: d'ora in poi da %2 a %3, finora da %4 a %5</translation>
    </message>
    <message id="1972">
        <source>Always type %1: from now on %2 to %2, so far none</source>
        <translation>Sempre tipo %1: d'ora in poi da %2 a %2, finora nessuno</translation>
    </message>
    <message id="1973">
        <source>Firmware revision %1 is used as type %2: chosen by hand.</source>
        <translation>La revisione firmware %1 è usata come tipo %2: scelto a mano.</translation>
    </message>
    <message id="1974">
        <source>%1, chosen by hand</source>
        <extracomment>A sensor type</extracomment>
        <translation>%1, scelto a mano</translation>
    </message>
    <message id="1975">
        <source>The range is entered in a settings file of your own, a copy of the one that is read now.

From then on %1 is read, and %2 no longer.</source>
        <translation>L'intervallo viene scritto in un file di impostazioni proprio, copia di quello letto ora.

Da allora viene letto %1, e %2 non più.</translation>
    </message>
    <message id="1976">
        <source>Last files:</source>
        <extracomment>In the file dialog, before a list</extracomment>
        <translation>Ultimi file:</translation>
    </message>
    <message id="1977">
        <source>COM%1 is being opened. That can take up to 20 seconds while another program looks at an adapter that has just been plugged in.</source>
        <extracomment>Box while a port is opened, with a button that leads to the choice of another port</extracomment>
        <translation>Apertura di COM%1 in corso. Può richiedere fino a 20 secondi, finché un altro programma esamina un adattatore appena collegato.</translation>
    </message>
    <message id="2000">
        <source>The sensor's port: a COM number, the path of a device, or simulator:...</source>
        <extracomment>Help of pelorin-cli, as all up to 2019</extracomment>
        <translation>La porta del sensore: un numero COM, il percorso di un dispositivo o simulator:...</translation>
    </message>
    <message id="2001">
        <source>Prints one JSON object instead of words.</source>
        <translation>Mostra un oggetto JSON invece di parole.</translation>
    </message>
    <message id="2002">
        <source>The sensor's type, for a firmware revision that lies in no configured range.</source>
        <translation>Il tipo del sensore, per una revisione del firmware fuori da tutti gli intervalli configurati.</translation>
    </message>
    <message id="2003">
        <source>You switch the sensor's supply by hand, and are told when.</source>
        <translation>L'alimentazione del sensore viene commutata a mano, quando viene indicato.</translation>
    </message>
    <message id="2004">
        <source>Repeats the connecting for so long until a sensor answers.</source>
        <translation>Ripete la connessione per questo tempo finché un sensore risponde.</translation>
    </message>
    <message id="2005">
        <source>Saves the communications log to a file.</source>
        <translation>Salva il registro comunicazioni in un file.</translation>
    </message>
    <message id="2006">
        <source>The settings file to be used.</source>
        <translation>Il file delle impostazioni da usare.</translation>
    </message>
    <message id="2007">
        <source>The language: 1 English, 2 German, 4 French, 8 Spanish, 16 Italian.</source>
        <translation>La lingua: 1 inglese, 2 tedesco, 4 francese, 8 spagnolo, 16 italiano.</translation>
    </message>
    <message id="2008">
        <source>Answers yes to what would be asked.</source>
        <translation>Risponde sì a ciò che verrebbe chiesto.</translation>
    </message>
    <message id="2009">
        <source>Writes nothing, neither to a sensor nor to a file other than that of --log.</source>
        <translation>Non scrive nulla, né in un sensore né in un file diverso da quello di --log.</translation>
    </message>
    <message id="2010">
        <source>Shows this help.</source>
        <translation>Mostra questo aiuto.</translation>
    </message>
    <message id="2011">
        <source>Shows the program's version.</source>
        <translation>Mostra la versione del programma.</translation>
    </message>
    <message id="2012">
        <source>Lists the serial ports of this computer.</source>
        <translation>Elenca le porte seriali di questo computer.</translation>
    </message>
    <message id="2013">
        <source>Reads all parameters of a sensor and shows what they mean.</source>
        <translation>Legge tutti i parametri di un sensore e ne mostra il significato.</translation>
    </message>
    <message id="2014">
        <source>Reads parameters and shows their texts as they are. The sensor need not be identified.</source>
        <translation>Legge parametri e ne mostra i testi così come sono. Il sensore può non essere identificato.</translation>
    </message>
    <message id="2015">
        <source>Saves all parameters of a sensor to a backup file.</source>
        <translation>Salva tutti i parametri di un sensore in un file di backup.</translation>
    </message>
    <message id="2016">
        <source>Compares a sensor with a backup file, or two backup files.</source>
        <translation>Confronta un sensore con un file di backup, o due file di backup.</translation>
    </message>
    <message id="2017">
        <source>Shows what a backup file or a lookup table holds.</source>
        <translation>Mostra che cosa contiene un file di backup o una tabella di ricerca.</translation>
    </message>
    <message id="2020">
        <source>%2 is no value that %1 can have.</source>
        <extracomment>%1 option, %2 what was given</extracomment>
        <translation>%2 non è un valore possibile di %1.</translation>
    </message>
    <message id="2021">
        <source>Name the sensor's port with --port.</source>
        <translation>Indicare la porta del sensore con --port.</translation>
    </message>
    <message id="2022">
        <source>The command is used like this:
%1</source>
        <extracomment>%1 command line</extracomment>
        <translation>Il comando si usa così:
%1</translation>
    </message>
    <message id="2023">
        <source>The sensor's supply is switched by hand, but there is no terminal at which you could be told when.</source>
        <translation>L'alimentazione del sensore viene commutata a mano, ma non c'è un terminale su cui indicare quando.</translation>
    </message>
    <message id="2024">
        <source>There is no command "%1". All are listed by --help.</source>
        <extracomment>%1 what was given</extracomment>
        <translation>Non esiste il comando "%1". --help li elenca tutti.</translation>
    </message>
    <message id="2025">
        <source>The language cannot be loaded.</source>
        <translation>La lingua non può essere caricata.</translation>
    </message>
    <message id="2026">
        <source>%1 stands for no device.</source>
        <extracomment>%1 COM number</extracomment>
        <translation>%1 non indica alcun dispositivo.</translation>
    </message>
    <message id="2027">
        <source>Switch the sensor's supply off, then press Enter. Type n and Enter if the sensor is ready for programming already.</source>
        <translation>Spegnere l'alimentazione del sensore, poi premere Invio. Digitare n e Invio se il sensore è già pronto per la programmazione.</translation>
    </message>
    <message id="2028">
        <source>Switch the sensor's supply on now, then press Enter.</source>
        <translation>Accendere ora l'alimentazione del sensore, poi premere Invio.</translation>
    </message>
    <message id="2029">
        <source>The sensor's firmware revision %1 is that of type %2, not of the one that was named. Nothing else was done.</source>
        <extracomment>%1 revision, %2 type</extracomment>
        <translation>La revisione %1 del firmware del sensore è quella del tipo %2, non di quello indicato. Non è stato fatto altro.</translation>
    </message>
    <message id="2030">
        <source>Interrupted.</source>
        <translation>Interrotto.</translation>
    </message>
    <message id="2031">
        <source>The results could not be written to standard output: %1.</source>
        <extracomment>%1 reason</extracomment>
        <translation>Non è stato possibile scrivere i risultati sull'output standard: %1.</translation>
    </message>
    <message id="2032">
        <source>yes</source>
        <extracomment>Typed as an answer; its first letter is enough</extracomment>
        <translation>sì</translation>
    </message>
    <message id="2033">
        <source>The file %1 exists. Overwrite it?</source>
        <extracomment>%1 path</extracomment>
        <translation>Il file %1 esiste. Sovrascriverlo?</translation>
    </message>
    <message id="2034">
        <source>The file %1 exists and was not overwritten. --yes overwrites it.</source>
        <extracomment>%1 path</extracomment>
        <translation>Il file %1 esiste e non è stato sovrascritto. --yes lo sovrascrive.</translation>
    </message>
    <message id="2035">
        <source>%1 is no parameter of a sensor.</source>
        <extracomment>%1 what was given</extracomment>
        <translation>%1 non è un parametro di un sensore.</translation>
    </message>
    <message id="2036">
        <source>The file %1 is neither a backup file nor a lookup table.</source>
        <extracomment>%1 path</extracomment>
        <translation>Il file %1 non è né un file di backup né una tabella di ricerca.</translation>
    </message>
    <message id="2037">
        <source>Sensor of type %1, version answer %2</source>
        <translation>Sensore di tipo %1, risposta di versione %2</translation>
    </message>
    <message id="2038">
        <source>Sensor of type %1 (chosen by hand), version answer %2</source>
        <translation>Sensore di tipo %1 (scelto a mano), risposta di versione %2</translation>
    </message>
    <message id="2039">
        <source>Sensor that is not identified, version answer %1</source>
        <translation>Sensore non identificato, risposta di versione %1</translation>
    </message>
    <message id="2040">
        <source>All are equal.</source>
        <extracomment>Parameters of a comparison</extracomment>
        <translation>Tutti sono uguali.</translation>
    </message>
    <message id="2041">
        <source>not there</source>
        <extracomment>Of a parameter in a file</extracomment>
        <translation>non presente</translation>
    </message>
    <message id="2042">
        <source>The settings file %1 does not exist.</source>
        <extracomment>%1 path</extracomment>
        <translation>Il file delle impostazioni %1 non esiste.</translation>
    </message>
    <message id="2060">
        <source>Writes saved parameters to a sensor, restarts it and compares.</source>
        <translation>Scrive parametri salvati in un sensore, lo riavvia e confronta.</translation>
    </message>
    <message id="2061">
        <source>Changes output settings of a sensor, restarts it and compares. What is not named stays.</source>
        <translation>Modifica impostazioni di uscita di un sensore, lo riavvia e confronta. Ciò che non è nominato resta.</translation>
    </message>
    <message id="2062">
        <source>Shows the magnet's position until the time is over or the command is ended.</source>
        <translation>Mostra la posizione del magnete finché il tempo è scaduto o il comando è terminato.</translation>
    </message>
    <message id="2063">
        <source>Lists the states that sensors had before they were written to, shows one, or puts one back.</source>
        <translation>Elenca gli stati che i sensori avevano prima della scrittura, ne mostra uno o lo ripristina.</translation>
    </message>
    <message id="2064">
        <source>Writes even if what the sensor has now cannot be kept in the journal.</source>
        <translation>Scrive anche se lo stato attuale del sensore non può essere conservato.</translation>
    </message>
    <message id="2065">
        <source>The password that skip-count needs.</source>
        <translation>La password richiesta da skip-count.</translation>
    </message>
    <message id="2066">
        <source>What is written for an offset that is not named while the data format has a multiplier.</source>
        <translation>Che cosa si scrive per un offset non nominato se il formato dati ha un moltiplicatore.</translation>
    </message>
    <message id="2067">
        <source>How long the position is shown.</source>
        <translation>Per quanto tempo si mostra la posizione.</translation>
    </message>
    <message id="2068">
        <source>Records the positions in a file.</source>
        <translation>Registra le posizioni in un file.</translation>
    </message>
    <message id="2070">
        <source>Say what is to be written: --all or --output-only.</source>
        <translation>Indicare che cosa deve essere scritto: --all o --output-only.</translation>
    </message>
    <message id="2071">
        <source>Write this to the sensor?</source>
        <translation>Scrivere questo nel sensore?</translation>
    </message>
    <message id="2072">
        <source>Nothing was written, because nobody has agreed. --yes agrees.</source>
        <translation>Non è stato scritto nulla, perché nessuno ha acconsentito. --yes acconsente.</translation>
    </message>
    <message id="2073">
        <source>--no-journal writes all the same.</source>
        <translation>--no-journal scrive comunque.</translation>
    </message>
    <message id="2074">
        <source>While safe writes are switched off the sensor is not read before: a backup can only be restored with --all. Nothing was written.</source>
        <translation>Finché la scrittura sicura è disattivata, il sensore non viene letto prima: un backup si può ripristinare solo con --all. Non è stato scritto nulla.</translation>
    </message>
    <message id="2075">
        <source>%1 is no setting. Settings are written NAME=VALUE, with these names: %2</source>
        <extracomment>%1 what was given, %2 names</extracomment>
        <translation>%1 non è un'impostazione. Le impostazioni si scrivono NOME=VALORE, con questi nomi: %2</translation>
    </message>
    <message id="2076">
        <source>%2 is no value of %1. Its values: %3</source>
        <extracomment>%1 setting, %2 what was given, %3 values</extracomment>
        <translation>%2 non è un valore di %1. I suoi valori: %3</translation>
    </message>
    <message id="2077">
        <source>Sensors of type %1 do not have %2. Nothing was written.</source>
        <extracomment>%1 type, %2 setting</extracomment>
        <translation>I sensori di tipo %1 non hanno %2. Non è stato scritto nulla.</translation>
    </message>
    <message id="2078">
        <source>The measurement direction changes, and the offset with it: name the new offset, too. Nothing was written.</source>
        <translation>La direzione di misura cambia, e con essa l'offset: indicare anche il nuovo offset. Non è stato scritto nulla.</translation>
    </message>
    <message id="2079">
        <source>Choose with --offset-count=keep-length or --offset-count=multiplied. Nothing was written.</source>
        <translation>Scegliere con --offset-count=keep-length o --offset-count=multiplied. Non è stato scritto nulla.</translation>
    </message>
    <message id="2080">
        <source>%1 is named twice.</source>
        <extracomment>%1 setting</extracomment>
        <translation>%1 è nominato due volte.</translation>
    </message>
    <message id="2081">
        <source>then a pause of %1 ms</source>
        <translation>poi una pausa di %1 ms</translation>
    </message>
    <message id="2082">
        <source>The journal has no entry %1.</source>
        <translation>Il giornale non ha una voce %1.</translation>
    </message>
    <message id="2100">
        <source>%1 hexadecimal is %2.</source>
        <translation>%1 esadecimale è %2.</translation>
    </message>
    <message id="2101">
        <source>%1 hexadecimal; the firmware revision is %2, as the bounds in the settings are written.</source>
        <translation>%1 esadecimale; la revisione del firmware è %2, come sono scritti i limiti nelle impostazioni.</translation>
    </message>
    <message id="2102">
        <source>%1 = 512 × gradient ÷ resolution in µm.</source>
        <translation>%1 = 512 × gradiente ÷ risoluzione in µm.</translation>
    </message>
    <message id="2103">
        <source>Gradient and resolution give %1.</source>
        <translation>Gradiente e risoluzione danno %1.</translation>
    </message>
    <message id="2104">
        <source>The code of a stroke length of %1 mm.</source>
        <translation>Il codice di una corsa di misura di %1 mm.</translation>
    </message>
    <message id="2105">
        <source>%1 or %2</source>
        <translation>%1 o %2</translation>
    </message>
    <message id="2106">
        <source>No stroke length has this code.</source>
        <translation>Nessuna corsa di misura ha questo codice.</translation>
    </message>
    <message id="2107">
        <source>As Read from the Sensor</source>
        <translation>Come letto dal sensore</translation>
    </message>
    <message id="2108">
        <source>Read a Parameter</source>
        <translation>Leggi un parametro</translation>
    </message>
    <message id="2109">
        <source>Received, as Text</source>
        <translation>Ricezione, come testo</translation>
    </message>
    <message id="2110">
        <source>Enter sends; Up and Down show what was sent before.</source>
        <translation>Invio trasmette; Su e Giù mostrano ciò che è stato inviato prima.</translation>
    </message>
    <message id="2111">
        <source>Not everything that was pasted has a cell in the table. What lies beyond its edge was left out.</source>
        <translation>Non tutto ciò che è stato incollato ha una cella nella tabella. Ciò che supera il bordo è stato omesso.</translation>
    </message>
    <message id="2112">
        <source>Paste</source>
        <translation>Incolla</translation>
    </message>
    <message id="2113">
        <source>The file cannot hold this; it will hold %1.</source>
        <translation>Il file non può contenerlo; conterrà %1.</translation>
    </message>
    <message id="2114">
        <source>Selected line, in words</source>
        <translation>Riga scelta, in parole</translation>
    </message>
    <message id="2115">
        <source>Copy with Times</source>
        <translation>Copia con le ore</translation>
    </message>
    <message id="2116">
        <source>Follow</source>
        <translation>Segui</translation>
    </message>
    <message id="2117">
        <source>Find</source>
        <translation>Cerca</translation>
    </message>
    <message id="2118">
        <source>Next</source>
        <translation>Successivo</translation>
    </message>
    <message id="2119">
        <source>Previous</source>
        <translation>Precedente</translation>
    </message>
    <message id="2120">
        <source>%1 of %2</source>
        <translation>%1 di %2</translation>
    </message>
    <message id="2121">
        <source>searching: %1 so far</source>
        <translation>ricerca: %1 finora</translation>
    </message>
    <message id="2122">
        <source>Not found</source>
        <translation>Non trovato</translation>
    </message>
    <message id="2123">
        <source>Read of %1.</source>
        <translation>Lettura di %1.</translation>
    </message>
    <message id="2124">
        <source>Write of %1: %2.</source>
        <translation>Scrittura di %1: %2.</translation>
    </message>
    <message id="2125">
        <source>Answer, %1: %2.</source>
        <translation>Risposta, %1: %2.</translation>
    </message>
    <message id="2126">
        <source>Command %1.</source>
        <translation>Comando %1.</translation>
    </message>
    <message id="2127">
        <source>Position, as the sensor streams it: SSI word %1 hexadecimal.</source>
        <translation>Posizione, come la emette il sensore: parola SSI %1 esadecimale.</translation>
    </message>
    <message id="2128">
        <source>The supply line (RTS) could not be switched: %1.</source>
        <translation>Non è stato possibile commutare la linea di alimentazione (RTS): %1.</translation>
    </message>
    <message id="2129">
        <source>The port could not be emptied: %1.</source>
        <translation>Non è stato possibile svuotare la porta: %1.</translation>
    </message>
    <message id="2130">
        <source>Sending failed: %1.</source>
        <translation>Invio non riuscito: %1.</translation>
    </message>
    <message id="2131">
        <source>Receiving failed: %1.</source>
        <translation>Ricezione non riuscita: %1.</translation>
    </message>
    <message id="2132">
        <source>A frame left the port only in part.</source>
        <translation>Una trama ha lasciato la porta solo in parte.</translation>
    </message>
    <message id="2133">
        <source>The answer above has %1 bytes; 7 to 9 are expected.</source>
        <translation>La risposta precedente ha %1 byte; se ne attendono da 7 a 9.</translation>
    </message>
    <message id="2134">
        <source>The answer above does not end as an answer does.</source>
        <translation>La risposta precedente non termina come una risposta.</translation>
    </message>
    <message id="2135">
        <source>A value of %1 bytes is too long for a frame; nothing was sent.</source>
        <translation>Un valore di %1 byte è troppo lungo per una trama; non è stato inviato nulla.</translation>
    </message>
    <message id="2136">
        <source>The sensor is of type %1, as its firmware revision says.</source>
        <translation>Il sensore è di tipo %1, secondo la sua revisione del firmware.</translation>
    </message>
    <message id="2137">
        <source>The firmware revision of the sensor lies in none of the configured ranges.</source>
        <translation>La revisione del firmware del sensore non è in nessuno degli intervalli configurati.</translation>
    </message>
    <message id="2138">
        <source>Nothing was received in time.</source>
        <translation>Non è stato ricevuto nulla in tempo.</translation>
    </message>
    <message id="2139">
        <source>Not a whole answer, as text: %1.</source>
        <translation>Risposta incompleta, come testo: %1.</translation>
    </message>
    <message id="2140">
        <source>&amp;Open Backup File…</source>
        <translation>Apri &amp;file di backup…</translation>
    </message>
    <message id="2141">
        <source>Backup File</source>
        <translation>File di backup</translation>
    </message>
    <message id="2142">
        <source>Re&amp;port…</source>
        <translation>Rapport&amp;o…</translation>
    </message>
    <message id="2143">
        <source>Sensor Report</source>
        <translation>Rapporto del sensore</translation>
    </message>
    <message id="2144">
        <source>Web pages (*.html);;PDF documents (*.pdf);;All files (*)</source>
        <translation>Pagine web (*.html);;Documenti PDF (*.pdf);;Tutti i file (*)</translation>
    </message>
    <message id="2145">
        <source>Note</source>
        <translation>Nota</translation>
    </message>
    <message id="2146">
        <source>Date and time</source>
        <translation>Data e ora</translation>
    </message>
    <message id="2147">
        <source>Program</source>
        <translation>Programma</translation>
    </message>
    <message id="2148">
        <source>Last verification</source>
        <translation>Ultima verifica</translation>
    </message>
    <message id="2149">
        <source>The journal has no write to this sensor.</source>
        <translation>Il giornale non ha alcuna voce per questo sensore.</translation>
    </message>
    <message id="2150">
        <source>&amp;Support File…</source>
        <translation>File di &amp;supporto…</translation>
    </message>
    <message id="2151">
        <source>Support File</source>
        <translation>File di supporto</translation>
    </message>
    <message id="2152">
        <source>This is what the file will hold; it stays on this computer until you pass it on. Delete here what you do not want to pass on.</source>
        <translation>Questo è ciò che il file conterrà; resta su questo computer finché non lo inoltrate. Eliminate qui ciò che non volete inoltrare.</translation>
    </message>
    <message id="2153">
        <source>Versions</source>
        <translation>Versioni</translation>
    </message>
    <message id="2155">
        <source>Last kept state of a sensor</source>
        <translation>Ultimo stato conservato di un sensore</translation>
    </message>
    <message id="2156">
        <source>The last %1 of %2 lines</source>
        <translation>Le ultime %1 di %2 righe</translation>
    </message>
    <message id="2157">
        <source>Sensor type</source>
        <translation>Tipo di sensore</translation>
    </message>
    <message id="2160">
        <source>Sensor connected</source>
        <extracomment>State in the line above the page</extracomment>
        <translation>Sensore collegato</translation>
    </message>
    <message id="2161">
        <source>No sensor connected</source>
        <extracomment>State in the line above the page</extracomment>
        <translation>Nessun sensore collegato</translation>
    </message>
    <message id="2162">
        <source>Sensor not identified</source>
        <extracomment>State in the line above the page</extracomment>
        <translation>Sensore non identificato</translation>
    </message>
    <message id="2163">
        <source>Connection lost</source>
        <extracomment>State in the line above the page</extracomment>
        <translation>Connessione persa</translation>
    </message>
    <message id="2164">
        <source>Type %1</source>
        <extracomment>%1 is the sensor's type, a digit</extracomment>
        <translation>Tipo %1</translation>
    </message>
    <message id="2165">
        <source>Type %1, chosen by hand</source>
        <extracomment>%1 is the sensor's type, a digit</extracomment>
        <translation>Tipo %1, scelto a mano</translation>
    </message>
    <message id="2166">
        <source>Firmware revision %1</source>
        <extracomment>%1 are two hexadecimal digits</extracomment>
        <translation>Revisione firmware %1</translation>
    </message>
    <message id="2167">
        <source>Safe writes on</source>
        <translation>Scrittura sicura attiva</translation>
    </message>
    <message id="2168">
        <source>Safe writes off</source>
        <translation>Scrittura sicura disattivata</translation>
    </message>
    <message id="2170">
        <source>Go Back</source>
        <translation>Indietro</translation>
    </message>
    <message id="2171">
        <source>Go Forward</source>
        <translation>Avanti</translation>
    </message>
    <message id="2172">
        <source>%1 has vanished right after it was plugged in. Other programs take some adapters, such as braille display drivers (brltty) or ModemManager: have them leave it alone, then plug it in again.</source>
        <translation>%1 è sparito subito dopo essere stato collegato. Altri programmi si appropriano di alcuni adattatori, come i driver di display braille (brltty) o ModemManager: fare in modo che lo lascino libero, poi ricollegarlo.</translation>
    </message>
    <message id="2200">
        <source>The log keeps its newest lines, up to 256 MB. Older lines that are gone: %1</source>
        <extracomment>Note above the communications log; %1 number of lines</extracomment>
        <translation>Il registro conserva le righe più recenti, fino a 256 MB. Righe più vecchie che non esistono più: %1</translation>
    </message>
    <message id="2220">
        <source>Licence:</source>
        <extracomment>Caption in the About dialog</extracomment>
        <translation>Licenza:</translation>
    </message>
    <message id="2221">
        <source>Commit:</source>
        <extracomment>Caption in the About dialog: the revision of the sources</extracomment>
        <translation>Commit:</translation>
    </message>
    <message id="2222">
        <source>Qt version:</source>
        <extracomment>Caption in the About dialog</extracomment>
        <translation>Versione di Qt:</translation>
    </message>
    <message id="2230">
        <source>Reading was cancelled. What is empty was not read.</source>
        <extracomment>the user has cancelled the reading of a page</extracomment>
        <translation>Lettura annullata. Ciò che è vuoto non è stato letto.</translation>
    </message>
    <message id="2260">
        <source>The tables of the page for temperature compensation hold values that are in no file. Discard them?</source>
        <translation>Le tabelle della pagina della compensazione di temperatura contengono valori che non sono in nessun file. Eliminarli?</translation>
    </message>
    <message id="2261">
        <source>The file replaces values of the table that are in no file. Discard them?</source>
        <translation>Il file sostituisce valori della tabella che non sono in nessun file. Eliminarli?</translation>
    </message>
    <message id="2265">
        <source>You have no permission to open %1. Only the administrator of the system can give access to it.</source>
        <extracomment>%1 port</extracomment>
        <translation>Non si ha il permesso di aprire %1. Solo l'amministratore del sistema può consentire l'accesso.</translation>
    </message>
    <message id="2266">
        <source>The port is another one than that of the sensor that was written to.</source>
        <translation>La porta non è quella del sensore in cui si è scritto.</translation>
    </message>
    <message id="2267">
        <source>Pelorin ends without its port. If you stay, it goes on without one.</source>
        <translation>Senza la sua porta, Pelorin termina. Se si rimane, continua senza porta.</translation>
    </message>
    <message id="2268">
        <source>Another sensor answers than the one that was connected. Connect it first. Nothing was written.</source>
        <translation>Risponde un sensore diverso da quello collegato. Collegarlo prima. Non è stato scritto nulla.</translation>
    </message>
    <message id="2269">
        <source>Saved, and not taken over, since this type of sensor does not have it: %1.</source>
        <extracomment>%1 parameters</extracomment>
        <translation>Salvato e non ripreso, perché questo tipo di sensore non lo ha: %1.</translation>
    </message>
</context>
</TS>
